// A store with two programs for the tests of DC, DS and literals:
//
//   MAIN   START          addresses 0 to 39
//          <line under test>     relative address 3, absolute address 10
//   HERE   DS 1           absolute address 40
//          END
//   OTHER  START
//          END
//
// A test may put more lines behind the first.
#pragma once

#include <algorithm>
#include <initializer_list>
#include <string>

#include "MoziCode/Utf.h"
#include "data/DC.h"
#include "support/ScriptedPlatform.h"

namespace zelvaro::test {

template <class Family>
struct DataBench {
  using Char = CharOf<Family>;
  using View = ViewOf<Family>;

  explicit DataBench(std::initializer_list<std::string> lines, int lang = kEnglish) {
    sh.Lang = cs.Lang = b.Lang = lang;
    add("MAIN", "START", "");
    for (const std::string& line : lines) {
      const std::size_t blank = std::min(line.find(' '), line.size());
      add("", line.substr(0, blank), line.substr(std::min(blank + 1, line.size())));
    }
    here = add("HERE", "DS", "1");
    const int end = add("", "END", "");
    close(0, end, "MAIN");
    store.vecPrg[0].Labels = {{store[0].LabelStr, 0}, {store[here].LabelStr, here}};
    add("OTHER", "START", "");
    close(end + 1, add("", "END", ""), "OTHER");
    store[1].RelAdr = 3;
    store[1].AbAdr = 10;
    store[here].AbAdr = 40;
  }

  SrcData<Char>& line(int nr = 1) { return store[nr]; }
  std::string printed() {
    std::string out;
    out.swap(platform.console);
    return out;
  }
  View keep(const std::string& utf8) {
    if constexpr (sizeof(Char) == 1) {
      return store.arena.keep(utf16ToCp932(toUtf16(utf8)));
    } else {
      return store.arena.keep(toUtf16(utf8));
    }
  }

  ScriptedPlatform platform;
  TDiagLog log;
  TShellData sh{platform, log};
  TCorrectScode cs{platform, log};
  TBasicData b{platform, log};
  Assembly a{sh, cs, b};
  LineStore<Char>& store = b.store<Char>();
  int here = 0;

 private:
  int add(const std::string& label, const std::string& op, const std::string& oprnd) {
    store.addLine(keep("X"));
    const int record = static_cast<int>(store.lines().size()) - 1;
    SrcData<Char>& s = store[record];
    s.LabelStr = keep(label);
    s.OpStr = keep(op);
    s.OpNr = static_cast<std::int16_t>(findOp(s.OpStr));
    s.OprndComStr = s.Oprnd[0] = keep(oprnd);
    s.PrgNr = static_cast<int>(store.vecPrg.size());
    return record;
  }
  void close(int start, int end, const std::string& name) {
    PrgData<Char>& p = store.vecPrg.emplace_back();
    p.RecStart = start;
    p.RecEnd = end;
    p.PrgName = keep(name);
    store.PrgIndex[p.PrgName] = static_cast<int>(store.vecPrg.size()) - 1;
  }
};

}  // namespace zelvaro::test
