// A line store filled from source text without the stages that do it in the program: for tests of what
// works on split lines.  The text is well-formed: every START has its END.
#pragma once

#include <string>
#include <string_view>

#include "diag/Quote.h"
#include "encode/Encode.h"
#include "support/ScriptedPlatform.h"

namespace zelvaro::test {

template <class Family>
class SourceLines {
 public:
  using Char = CharOf<Family>;
  using View = ViewOf<Family>;

  explicit SourceLines(std::string_view source, int lang = kEnglish) {
    sh.Lang = cs.Lang = b.Lang = lang;
    while (!source.empty()) {
      const std::size_t end = std::min(source.find('\n'), source.size());
      add(source.substr(0, end));
      source.remove_prefix(std::min(end + 1, source.size()));
    }
    for (std::size_t prg = 0; prg < store.vecPrg.size(); ++prg)
      store.PrgIndex.emplace(store.vecPrg[prg].PrgName, static_cast<int>(prg));
  }
  // what the objects hold refers to the members
  SourceLines(const SourceLines&) = delete;
  SourceLines& operator=(const SourceLines&) = delete;

  /// The record of a line, counted from 0; only lines with a statement count.
  SrcData<Char>& line(int record) { return store[record]; }
  PrgData<Char>& program(std::size_t prg) { return store.vecPrg[prg]; }
  View keep(std::string_view utf8) {
    if constexpr (sizeof(Char) == 1) {
      return store.arena.keep(utf16ToCp932(toUtf16(utf8)));
    } else {
      return store.arena.keep(toUtf16(utf8));
    }
  }
  std::string printed() {
    std::string out;
    out.swap(platform.console);
    return out;
  }
  /// Errors, Warnings and Notes of the statement checks.
  std::string tallies() const {
    return std::to_string(cs.ErrorKazu) + " " + std::to_string(cs.WarningKazu) + " " +
           std::to_string(cs.NoteKazu);
  }

  ScriptedPlatform platform;
  TDiagLog log;
  TShellData sh{platform, log};
  TCorrectScode cs{platform, log};
  TBasicData b{platform, log};
  Assembly a{sh, cs, b};
  LineStore<Char>& store = b.store<Char>();

 private:
  void add(std::string_view utf8) {
    View text = keep(utf8);
    store.addLine(text);
    if (!holdsStatement(text)) return;
    const int record = static_cast<int>(store.lines().size()) - 1;
    SrcData<Char>& s = store[record];
    if (!isBlank(text.front())) s.LabelStr = word(text);
    text = trimLeft(text);
    s.OpStr = word(text);
    s.OpNr = static_cast<std::int16_t>(findOp(s.OpStr));
    s.Oprnd.fill(text.substr(text.size()));
    s.OprndComStr = s.Oprnd[0] = trim(text);
    if (opOf(s) != Op::DC) splitOprnds(s);
    enterInProgram(s, record);
  }
  void enterInProgram(SrcData<Char>& s, int record) {
    if (opOf(s) == Op::START) {
      PrgData<Char>& p = store.vecPrg.emplace_back();
      p.StartLine = s.Line;
      p.RecStart = record;
      p.PrgName = s.LabelStr;
    }
    s.PrgNr = static_cast<int>(store.vecPrg.size()) - 1;
    PrgData<Char>& p = store.vecPrg.back();
    if (opOf(s) == Op::END) {
      p.EndLine = s.Line;
      p.RecEnd = record;
    } else if (!s.LabelStr.empty()) {
      p.Labels.emplace(s.LabelStr, record);
    }
  }
  /// Takes the word at the front off the text.
  static View word(View& text) {
    std::size_t end = 0;
    while (end < text.size() && !isBlank(text[end])) ++end;
    const View out = text.substr(0, end);
    text.remove_prefix(end);
    return out;
  }
  /// Cuts at commas, which stay with the operand in front, and at blanks, neither of them in quotes.
  static void splitOprnds(SrcData<Char>& s) {
    View rest = s.Oprnd[0];
    for (std::size_t n = 1; n < s.Oprnd.size() && !rest.empty(); ++n, rest = trimLeft(rest)) {
      std::size_t end = 0;
      for (bool quoted = false; end < rest.size(); ++end) {
        if (rest[end] == Char('\'')) quoted = !quoted;
        if (!quoted && (isBlank(rest[end]) || rest[end] == Char(','))) break;
      }
      if (end < rest.size() && rest[end] == Char(',')) ++end;
      s.Oprnd[n] = rest.substr(0, end);
      rest.remove_prefix(end);
    }
  }
};

}  // namespace zelvaro::test
