// A source file in memory, driven through the stages of src/structure/ in the driver's order.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "MoziCode/Cp932.h"
#include "MoziCode/Utf.h"
#include "diag/Quote.h"
#include "structure/Structure.h"
#include "support/ScriptedPlatform.h"

namespace zelvaro::test {

template <class Family>
class Source {
 public:
  using Char = CharOf<Family>;

  explicit Source(std::string_view utf8, int lang = kEnglish) {
    sh.Lang = cs.Lang = b.Lang = lang;
    b.SrcFilename = "src\\two.txt";
    while (!utf8.empty()) {
      const std::size_t end = std::min(utf8.find('\n'), utf8.size());
      store().addLine(store().arena.keep(encoded(utf8.substr(0, end))));
      utf8.remove_prefix(std::min(end + 1, utf8.size()));
    }
  }

  static std::basic_string<Char> encoded(std::string_view utf8) {
    if constexpr (sizeof(Char) == 1) {
      return utf16ToCp932(toUtf16(utf8));
    } else {
      return toUtf16(utf8);
    }
  }

  LineStore<Char>& store() { return b.template store<Char>(); }
  int programs() { return static_cast<int>(store().vecPrg.size()); }
  /// Normalisation up to the names: false if a stage stopped the way.
  bool structure() {
    if (edit<Family>(a) < 0) return false;
    ReplaceTabs<Family>(a);
    if (StartEnd10<Family>(a) < 0 || StartEnd20<Family>(a) < 0) return false;
    for (int i = 0; i < programs(); ++i) {
      StartEnd<Family>(a, i);
      CutComments<Family>(a, i);
    }
    if (a.errors() > 0) return false;
    IsAnySrcOutsideSartEnd<Family>(a);
    if (a.errors() > 0) return false;
    for (int i = 0; i < programs(); ++i) CkPrgName<Family>(a, i);
    return a.errors() == 0 && CkPrgNameDouble<Family>(a) == 0;
  }
  /// The stages of this folder over one program, as far as the cleaned operand text.
  bool program(int prg) {
    Label35G<Family>(a, prg);
    if (a.errors() > 0) return false;
    TakeOutLabelStr<Family>(a, prg);
    SearchApostForNonCharConstOP<Family>(a, prg);
    CopyOprndComToWork<Family>(a, prg);
    edit30c<Family>(a, prg);
    if (a.errors() > 0) return false;
    edit50<Family>(a, prg);
    if (a.errors() > 0) return false;
    SplitComment<Family>(a, prg);
    TrimZenOprndCom<Family>(a, prg);
    TrimOprndCom<Family>(a, prg);
    return true;
  }
  bool run() {
    if (!structure()) return false;
    for (int i = 0; i < programs(); ++i)
      if (!program(i)) return false;
    CkLabelInUse<Family>(a);
    CkPrgNameInUse<Family>(a);
    return true;
  }

  /// The record of a line (1-based).
  const SrcData<Char>& line(int number) { return *store().atLine(number - 1); }
  std::string work(int number) { return plain(line(number).SrcWork); }
  std::string oprnd(int number) { return plain(line(number).OprndComStr); }
  /// Label, opcode and operand text of a line.
  std::string words(int number) {
    const auto& l = line(number);
    return plain(l.LabelStr) + "|" + plain(l.OpStr) + "|" + plain(l.OprndComStr);
  }
  ScriptedPlatform platform;
  TDiagLog log;
  TShellData sh{platform, log};
  TCorrectScode cs{platform, log};
  TBasicData b{platform, log};
  Assembly a{sh, cs, b};
};

}  // namespace zelvaro::test
