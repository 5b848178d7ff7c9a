// One line with its operands, as the extraction leaves them, through one encoder.
#pragma once

#include <gtest/gtest.h>

#include "MoziCode/Utf.h"
#include "encode/Encode.h"
#include "support/ScriptedPlatform.h"

namespace zelvaro::test {

inline const std::string E = "Error : line 1: ";

/// What an encoder made of a line.
struct Encoded {
  std::string said;
  int errors = 0;
  int warnings = 0;
  int words = 0;
  int word1 = 0;
};

template <class Family>
class EncoderBench {
 public:
  explicit EncoderBench(int lang = kEnglish) { cs.Lang = lang; }

  /// Encodes a line of that mnemonic.  `word_kazu` is what the extraction gave it.
  Encoded run(std::string_view op, const std::vector<std::string>& oprnds, int word_kazu = 0) {
    line = {};
    line.OpStr = keep(op);
    line.OpNr = static_cast<std::int16_t>(findOp(line.OpStr));
    line.word_kazu = word_kazu;
    std::string all;
    for (std::size_t n = 1; n < line.Oprnd.size(); ++n) {
      line.Oprnd[n] = keep(n <= oprnds.size() ? oprnds[n - 1] : "");
      if (n <= oprnds.size()) all += oprnds[n - 1];
    }
    line.Oprnd[0] = keep(all);
    line.OprndComStr = line.Oprnd[0];
    const int errors = cs.ErrorKazu;
    const int warnings = cs.WarningKazu;
    platform.console.clear();
    Assembly a{sh, cs, b};
    encode<Family>(a, line);
    return {platform.console, cs.ErrorKazu - errors, cs.WarningKazu - warnings, line.word_kazu, line.Word1};
  }
  std::string oprnd(std::size_t n) const { return quoteless(line.Oprnd[n]); }

  ScriptedPlatform platform;
  TDiagLog log;
  TShellData sh{platform, log};
  TCorrectScode cs{platform, log};
  TBasicData b{platform, log};
  SrcData<CharOf<Family>> line;

 private:
  ViewOf<Family> keep(std::string_view utf8) {
    if constexpr (sizeof(CharOf<Family>) == 1) {
      return b.store<CharOf<Family>>().arena.keep(utf16ToCp932(toUtf16(utf8)));
    } else {
      return b.store<CharOf<Family>>().arena.keep(toUtf16(utf8));
    }
  }
  static std::string quoteless(std::u16string_view s) { return toUtf8(s); }
  static std::string quoteless(std::string_view s) { return cp932ToUtf8(s); }
};

inline Encoded encodeWP(std::string_view op, const std::vector<std::string>& oprnds, int lang = kEnglish) {
  return EncoderBench<WP>(lang).run(op, oprnds);
}

}  // namespace zelvaro::test
