// A source and typed lines through a whole pipeline.  Each input runs twice; what is shown and written must be
// the same, or something lives on from one session to the next, or was read before it was written.
#include "shell/Session.h"

#include <array>
#include <sstream>

#include "Fuzz.h"
#include "MoziCode/Utf.h"
#include "comet2/RunLoop.h"
#include "shell/Game.h"

namespace zelvaro::fuzz {
namespace {

constexpr std::array kPipelines{"WP", "NWW", "NwW", "NaW", "AP", "NA", "NH", "WP"};
constexpr char kSeparator = '\x1E';  ///< the typed lines stand behind the last one
constexpr std::size_t kMostTyped = 24;
constexpr std::int64_t kMostSteps = 70'000;  ///< enough to run through an empty memory

/// Where a learner's program would not come to an end, its first word is made a RET.  A copy of the machine
/// finds that out when the start words of a run pass by.
class SessionPlatform : public test::ScriptedPlatform {
 public:
  TSession* session = nullptr;
  bool isFixedForm = false;

  void print(std::string_view utf8) override {
    ScriptedPlatform::print(utf8);
    const bool starts = utf8 == "The comet2 starts running, please wait for a moment ...,\n" ||
                        utf8 == "\n演算実行 開始、しばらくお待ちください。\nCOMET2 実行中 ";
    if (starts && !(isFixedForm ? comesToAnEnd<NH>() : comesToAnEnd<WP>())) session->m.Memory[0] = 0x8100;
  }

 private:
  template <class Family>
  bool comesToAnEnd() const {
    Tcomet2 m = session->m;
    m.PR = 0;
    LimitedPlatform platform(*this);
    FamilyStoreWatch<Family> watch(m, platform, session->b.PrgEndAdr);
    std::int64_t steps = kMostSteps;
    try {
      return runLoop(m, platform, watch, kRunLimit<Family>, steps) != Stop::Steps;
    } catch (const TooMuchOutput&) {
      return false;
    }
  }
};

/// All that a session shows and writes.
struct Transcript {
  std::string console;
  std::map<std::string, std::string> files;
  std::vector<std::string> actions;

  bool operator==(const Transcript&) const = default;
};

Transcript run(int how, std::string_view source, std::string_view typed) {
  const std::string pipeline = kPipelines[how & 7];
  SessionPlatform platform;
  platform.isFixedForm = pipeline == "NH";
  platform.files["a.txt"] = source;
  platform.files["zelvaro.ini"] = std::string("[Mode]\nLangStr=") + ((how & 0x08) != 0 ? "JPN" : "ENU") +
                                  "\nSimpleTitleIndex=" + ((how & 0x10) != 0 ? "1" : "0") +
                                  "\nFightFunc=" + pipeline + "\n";
  platform.typed = {"", "1", "a.txt"};
  std::istringstream lines{std::string(typed)};
  for (std::string line; platform.typed.size() < kMostTyped && std::getline(lines, line);)
    platform.typed.push_back(line);
  TSession session(platform);
  platform.session = &session;
  TGame game(session);
  game.SetCurrentDirChH();
  game.Start();
  return {platform.console, platform.files, platform.actions};
}

}  // namespace
}  // namespace zelvaro::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zelvaro::fuzz;
  Input in(data, size);
  const int how = in.byte();
  const std::string_view rest = in.rest();
  const std::size_t separator = std::min(rest.rfind(kSeparator), rest.size());
  const std::string_view source = rest.substr(0, separator);
  const std::string_view typed = rest.substr(std::min(separator + 1, rest.size()));
  const Transcript first = run(how, source, typed);
  const Transcript second = run(how, source, typed);
  require(first == second, "two sessions differ:\n" + first.console + "\n--- and\n" + second.console);
  std::u16string wide;
  require(zelvaro::utf8ToUtf16(first.console, wide), "the console shows no UTF-8");
  for (const auto& [name, text] : first.files)
    require(name == "a.txt" || zelvaro::utf8ToUtf16(text, wide), name + " is no UTF-8");
  return 0;
}
