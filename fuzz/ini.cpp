// A settings file of any bytes: it is read or told to be none, and what is written then reads as the same
// settings and is written as the same file.
#include <algorithm>

#include "Fuzz.h"
#include "shell/Settings.h"

namespace zelvaro::fuzz {
namespace {

constexpr const char* kIni = "zelvaro.ini";

/// All that a settings file sets and holds again.
struct Seen {
  std::string file;     ///< as the session writes it
  std::string console;  ///< what the reading has told
  int lang = 0, clock = 0, simpleTitle = 0, busyMode = 0, editor = 0, slot = 0;
  std::string pipeline, clockName, source, editor1, editor2;

  bool operator==(const Seen&) const = default;
};

Seen readAndWrite(std::string_view bytes) {
  test::ScriptedPlatform platform;
  platform.files[kIni] = bytes;
  TSession s(platform);
  ReadIni(s, kIni);
  Seen out;
  out.console = platform.console;
  WriteIni(s, kIni);
  require(platform.console == out.console, "the settings cannot be written: " + platform.console);
  out.file = platform.files[kIni];
  out.lang = s.sh.Lang;
  require(s.b.Lang == out.lang && s.cs.Lang == out.lang, "the language is not the same everywhere");
  out.clock = s.timeData.ClockIndex;
  require(out.clock >= 0 && out.clock <= 2, "no such clock");
  out.simpleTitle = s.b.SimpleTitleIndex;
  out.busyMode = s.b.BusyModeIndex;
  out.editor = s.sh.TextEditorIndex;
  out.slot = s.b.TextEditorIndex();
  require(out.slot >= 0 && out.slot <= 2, "no such editor");
  out.pipeline = s.sh.FightFunc;
  out.clockName = s.timeData.ClockName;
  out.source = s.sh.LastSrcFile;
  out.editor1 = s.b.TextEditorPath[1];
  out.editor2 = s.b.TextEditorPath[2];
  return out;
}

bool isControl(char c) {
  return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
}

}  // namespace
}  // namespace zelvaro::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zelvaro::fuzz;
  const Seen first = readAndWrite(Input(data, size).rest());
  Seen second = readAndWrite(first.file);
  require(second.console.find("cannot be understood") == std::string::npos, "a written file does not parse");
  require(second == readAndWrite(second.file), "the same settings read in another way the second time");

  // What is not stored as it was: a text with a control character, and a source without a name.
  const std::string texts = first.pipeline + first.source + first.editor1 + first.editor2;
  if (first.source.empty() || std::any_of(texts.begin(), texts.end(), isControl)) return 0;
  second.console = first.console;
  require(first == second,
          "the settings change when they are written and read:\n" + first.file + "---\n" + second.file);
  return 0;
}
