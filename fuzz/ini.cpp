// A settings file of any bytes: it is read or reported not to be one, and what is written then reads as the same
// settings and is written as the same file.
#include <algorithm>

#include "Fuzz.h"
#include "shell/Settings.h"

namespace zelvaro::fuzz {
namespace {

/// What a settings file sets: the file as the session writes it holds all of it.
struct Seen {
  std::string file, console, source, texts;
};

Seen readAndWrite(std::string_view bytes) {
  const std::string ini(kIniFile);
  test::ScriptedPlatform platform;
  platform.files[ini] = bytes;
  TSession s(platform);
  ReadIni(s, ini);
  const std::string console = platform.console;
  WriteIni(s, ini);
  require(platform.console == console, "the settings cannot be written: " + platform.console);
  require(s.timeData.ClockIndex >= 0 && s.timeData.ClockIndex <= 2, "no such clock");
  require(s.b.TextEditorIndex() >= 0 && s.b.TextEditorIndex() <= 2, "no such editor");
  const std::string& source = s.sh.LastSrcFile;
  return {platform.files[ini], console, source,
          s.sh.FightFunc + source + s.b.TextEditorPath[1] + s.b.TextEditorPath[2]};
}

}  // namespace
}  // namespace zelvaro::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zelvaro::fuzz;
  const Seen first = readAndWrite(Input(data, size).rest());
  const Seen second = readAndWrite(first.file), third = readAndWrite(second.file);
  require(second.console.find("cannot be understood") == std::string::npos, "a written file does not parse");
  require(second.file == third.file && second.texts == third.texts, "the settings change the second time");
  // What is not stored as it was: a text with a control character, and a source without a name.
  const auto isControl = [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; };
  if (first.source.empty() || std::ranges::any_of(first.texts, isControl)) return 0;
  require(first.file == second.file && first.texts == second.texts,
          "the settings change when they are written and read:\n" + first.file + "---\n" + second.file);
  return 0;
}
