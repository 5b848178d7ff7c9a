// Two hundred commands in one process: what each run shows and writes is what a fresh process shows and
// writes.  A seeded row of commands, so that a failure comes again.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <random>
#include <set>

#include "shell/Game.h"
#include "shell/Session.h"
#include "support/ScriptedPlatform.h"

namespace zelvaro::test {
namespace {

constexpr int kCommands = 200;

/// What one command left behind.
struct Outcome {
  std::string text;  ///< what was printed behind the last menu, up to the next go-ahead prompt
  std::string assembled;
  std::string resultant;

  bool operator==(const Outcome&) const = default;
};

/// One command of the session: the lines typed from its go-ahead prompt on.
struct Command {
  std::string name;
  int lang = kEnglish;
  std::vector<std::string> typed;
};

/// Cuts the session at the go-ahead prompts, and takes the reports away there, so that each one that is
/// found has been written by the last command.
class CuttingPlatform : public ScriptedPlatform {
 public:
  std::vector<Outcome> outcomes;

  std::optional<std::string> readLine() override {
    for (const char* prompt : {"Enter key to go next. \n", "入力（Enter）キィを押すと次へ進む。\n"})
      if (console.ends_with(prompt)) cut();
    return ScriptedPlatform::readLine();
  }

 private:
  void cut() {
    outcomes.push_back({runText(), takeReport("aaAssembledRegMry.txt"), takeReport("aaResultantRegMry.txt")});
    console.clear();
  }
  std::string takeReport(const std::string& name) {
    std::string text = files[name];
    files.erase(name);
    return text;
  }
  /// What the program keeps on purpose is left out: the report line in Japanese has more words the first
  /// time, a name that was not found leaves the encoding of the last file.  So is the menu, whose language
  /// a toggle changes.
  std::string runText() const {
    std::string text = console.substr(0, console.rfind("\n\n"));
    for (const char* foot : {"\nInput a menu number.\n", "\nメニュー番号を入力してください。\n"}) {
      const std::size_t at = text.rfind(foot);
      if (at != std::string::npos) text.erase(0, at + std::string(foot).size());
    }
    for (const char* first : {"\nアセンブルされた", "\n実行後の"}) {
      const std::size_t at = text.find(first);
      if (at != std::string::npos) text.erase(at, std::string(first).size());
    }
    for (const std::string nameless : {"\n* Reading    ", "\n''    "}) {
      const std::size_t at = text.find(nameless);
      if (at == std::string::npos) continue;
      const std::size_t encoding = at + nameless.size();
      text.erase(encoding, text.find('\n', encoding) - encoding);
    }
    return text;
  }
};

std::string fileBytes(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

std::map<std::string, std::string> sources() {
  std::map<std::string, std::string> out{
      {"comma.txt", "PRG START\n RET\nAREA DS 5,\n END\n"},
      {"svc.txt", "PRG START\n SVC 3\n RET\n END\n"},
      {"labels.txt", "PRG START\nabc LD GR1,=1\n1ABC RET\nGR1 DC 'x''y'\n END\n"},
      {"many.txt", "A START\n LD GR8 1\n FOO\n END\nA START\n DC #12345,\n JUMP NOWHERE\n"},
      {"store.txt", "PRG START\n LAD GR2,60000\n ST GR2,0,GR2\n RET\n END\n"},
      {"deep.txt", "PRG START\nMORE PUSH 1,GR1\n JUMP MORE\n RET\n END\n"},
      {"flags.txt",
       "PRG START\n LD GR7,=#7FFF\n ADDA GR7,=1\n JOV OVER\n RET\nOVER LD GR0,PRG\n RET\n END\n"},
      {"big.txt", "PRG START\n OUT TEXT,LEN\n RET\nTEXT DS 3000\nLEN DC 0\n END\n"},
      {"empty.txt", ""},
  };
  const std::filesystem::path root = std::string(ZELVARO_ROOT) + "/workspace";
  for (const auto& e : std::filesystem::recursive_directory_iterator(root / "src"))
    if (e.path().extension() == ".txt" && e.path().stem() != "f15loop")
      out[e.path().lexically_relative(root).string()] = fileBytes(e.path());
  return out;
}

std::vector<Outcome> play(const std::vector<Command>& commands) {
  CuttingPlatform platform;
  platform.files = sources();
  platform.files["zelvaro.ini"] = std::string("[Mode]\nLangStr=") +
                                  (commands.front().lang == kJapanese ? "JPN" : "ENU") +
                                  "\n[Src]\nLastSrcFile=src\\pn100.txt\n";
  int lang = commands.front().lang;
  for (const Command& c : commands) {
    platform.typed.push_back("");
    if (c.lang != lang) platform.typed.push_back("9");
    lang = c.lang;
    platform.typed.insert(platform.typed.end(), c.typed.begin(), c.typed.end());
  }
  TSession s(platform);
  TGame(s).Start();
  // In front of the first command there is nothing but the banner.
  if (!platform.outcomes.empty()) platform.outcomes.erase(platform.outcomes.begin());
  return platform.outcomes;
}

/// Every source has its own typed lines: an answer where warnings ask, a line where IN reads.
Command assembling(const std::string& name, int lang, bool goesOn) {
  Command c{name, lang, {"1", name}};
  if (name == "comma.txt" || name == "svc.txt") c.typed.emplace_back(goesOn ? "1" : "2");
  if (name.ends_with("ex14read.txt")) c.typed.insert(c.typed.end(), {"12", goesOn ? "-30" : ""});
  if (name.ends_with("ex03echo.txt")) c.typed.emplace_back(goesOn ? "Ada" : "山田");
  return c;
}

std::vector<Command> commandsOf(std::uint32_t seed) {
  std::vector<std::string> names{"nothing there"};
  for (const auto& [name, text] : sources()) names.push_back(name);
  std::mt19937 random(seed);
  const auto draw = [&](std::size_t count) { return random() % count; };
  std::vector<std::string> pile;  // every source comes before one comes again
  const auto nextName = [&] {
    if (pile.empty()) pile = names;
    std::swap(pile[draw(pile.size())], pile.back());
    std::string name = pile.back();
    pile.pop_back();
    return name;
  };
  std::vector<Command> out;
  int lang = kEnglish;
  while (out.size() < kCommands) {
    if (draw(4) == 0) lang = lang == kEnglish ? kJapanese : kEnglish;
    switch (draw(16)) {
      case 0:
        out.push_back({"4", lang, {"x", "4", "src"}});
        break;
      case 1:
        out.push_back({"2", lang, {"6", "", "2"}});
        break;
      case 2:
        out.push_back({"7", lang, {"7", "33", "7", "2", "3"}});
        break;
      default:
        out.push_back(assembling(nextName(), lang, draw(2) == 0));
    }
  }
  return out;
}

TEST(LongSession, LeavesNothingFromRunToRun) {
  const std::vector<Command> commands = commandsOf(20261122);
  const std::vector<Outcome> session = play(commands);
  ASSERT_EQ(session.size(), commands.size());
  std::set<std::string> tried;
  for (std::size_t i = 0; i < commands.size(); ++i) {
    const std::vector<Outcome> fresh = play({commands[i]});
    ASSERT_EQ(fresh.size(), 1u) << commands[i].name;
    const std::string where = "command " + std::to_string(i + 1) + ", " + commands[i].name;
    EXPECT_EQ(session[i].text, fresh[0].text) << where;
    EXPECT_EQ(session[i].assembled, fresh[0].assembled) << where;
    EXPECT_EQ(session[i].resultant, fresh[0].resultant) << where;
    tried.insert(commands[i].name);
  }
  for (const auto& [name, text] : sources()) EXPECT_EQ(tried.count(name), 1u) << name;
}

}  // namespace
}  // namespace zelvaro::test
