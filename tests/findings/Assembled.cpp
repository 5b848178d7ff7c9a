#include "findings/Assembled.h"

#include <fmt/format.h>

#include <algorithm>

namespace zelvaro::test {
namespace {

/// The text as a case writes it: "\xHH" for a control character, "{N:c}" for a character N times.
std::string escaped(const std::string& text) {
  constexpr std::size_t kShort = 12;
  std::string out;
  for (std::size_t i = 0, times = 0; i < text.size(); i += times) {
    times = std::min(text.find_first_not_of(text[i], i), text.size()) - i;
    if (times <= kShort) times = 1;
    const auto byte = static_cast<unsigned char>(text[i]);
    const std::string one =
        byte < 32 || byte == 127 ? fmt::format("\\x{:02X}", byte) : std::string(1, text[i]);
    out += times == 1 ? one : fmt::format("{{{}:{}}}", times, one);
  }
  return out;
}

std::string findingText(const Diagnostic& d, int line) {
  std::string out(d.row->code), separator = "(";
  for (const MsgArg& arg : d.args) {
    const std::string quote = arg.kind == MsgArg::Kind::Quoted ? "\"" : "";
    out += std::exchange(separator, ", ") + quote + escaped(arg.text) + quote;
  }
  if (!d.args.empty()) out += ")";
  if (d.line + 1 == line) return out;
  return out + "@" + (d.line == Diagnostic::kNoLine ? "-" : std::to_string(d.line + 1));
}

}  // namespace

Assembled::Assembled(const Family& family, const std::string& bytes, bool runs) {
  platform.files["a.txt"] = bytes;
  const std::string name = "a.txt";
  session.channel.add(recorder);
  session.wording.family = family.id;
  Pass pass{Assembly{session.sh, session.cs, session.b, family},
            LoadRequest{platform, session.moziCodeData, name, true}, session.m,
            RunEnvironment{platform, session.channel, session.timeData, family},
            ReportFile{platform, session.channel, session.timeData, family, Language::English}};
  links = runPhase(pass, Phase::Load) && runPhase(pass, Phase::Check) && runPhase(pass, Phase::Link);
  for (const TMsgBase* o :
       {static_cast<const TMsgBase*>(&session.sh), static_cast<const TMsgBase*>(&session.cs),
        static_cast<const TMsgBase*>(&session.b)}) {
    tallies[0] += o->ErrorKazu;
    tallies[1] += o->WarningKazu;
    tallies[2] += o->NoteKazu;
    tallies[3] += o->MemoKazu;
  }
  beforeRun = recorder.issued.size();
  if (!links || !runs) return;
  pass.run.PrgEndAdr = session.b.PrgEndAdr;
  runPhase(pass, Phase::Run);
}

std::string Assembled::found(int line, const std::string& named) const {
  std::string out;
  for (std::size_t i = 0; i < tallies.size(); ++i)
    if (tallies[i] != 0) out += fmt::format("{}{}{}", out.empty() ? "" : " ", "EWNM"[i], tallies[i]);
  if (out.empty()) out = links ? "ok" : "-";
  for (std::size_t i = 0; i < recorder.issued.size(); ++i) {
    const Diagnostic& d = recorder.issued[i];
    const bool isOfRun = i >= beforeRun;
    if (i == beforeRun) out += " stop";
    const bool isNamed = named.find(" " + std::string(d.row->code)) != std::string::npos;
    if (isNamed || (isOfRun ? !d.row->code.starts_with("run-") : d.row->severity != Severity::Notice))
      out += " " + findingText(d, isOfRun ? 0 : line);
  }
  return out;
}

std::string Assembled::words(int line, std::size_t count) const {
  const Tcomet2& m = session.m;
  std::size_t at = 0;
  while (line > 0 && at < kLinesKnown && m.LineOfAddress[at] != line - 1) ++at;
  if (!links || at == kLinesKnown) return "no words";
  std::string out;
  for (std::size_t i = 0; i < count; ++i) {
    const std::int32_t cell = m.Memory[at + i];  // a negative word may be kept as such
    out += fmt::format("{}{:04X}", i == 0 ? "" : " ", cell < 0 ? unsignedWord(cell) : cell);
  }
  return out;
}

}  // namespace zelvaro::test
