// A source and typed lines through a whole pipeline.  Each input runs twice; what is shown and written must be
// the same, or something lives on from one session to the next, or was read before it was written.
#include <sstream>

#include "Fuzz.h"
#include "comet2/RunLoop.h"
#include "shell/Game.h"

namespace zelvaro::fuzz {
namespace {

constexpr char kSeparator = '\x1E';  ///< the typed lines are after the last one
constexpr std::size_t kMostTyped = 24;
constexpr std::int64_t kMostSteps = 70'000;  ///< enough to run through an empty memory

/// Where a learner's program would not come to an end, its first word is made a RET.  A copy of the machine
/// finds that out when the start words of a run are issued.
class EndlessRuns : public DiagSink {
 public:
  EndlessRuns(TSession& s, const ScriptedPlatform& platform) : s_(s), platform_(platform) {}
  void take(const Diagnostic& d) override {
    if (d.row->code == "run-start" && !comesToAnEnd()) s_.m.Memory[0] = 0x8100;
  }

 private:
  bool comesToAnEnd() const {
    Tcomet2 m = s_.m;
    m.PR = 0;
    LimitedPlatform platform(platform_);
    ConsoleSink sink(platform, s_.wording);
    TimeData time;
    const RunEnvironment env{platform, sink, time, family(s_.wording.family), s_.b.PrgEndAdr};
    GuardedStores watch(m, env);
    std::int64_t steps = kMostSteps;
    try {
      return runLoop(m, {platform, sink}, watch, env.family.runLimit, steps) != Stop::Steps;
    } catch (const TooMuchOutput&) {
      return false;
    }
  }

  TSession& s_;
  const ScriptedPlatform& platform_;
};

/// What a session shows, writes and asks of the outside world.
using Transcript = std::tuple<std::string, std::map<std::string, std::string>, std::vector<std::string>>;

Transcript run(const How& how, std::string_view source, std::string_view typed) {
  test::ScriptedPlatform platform;
  platform.files["a.txt"] = source;
  platform.files["zelvaro.ini"] = std::string("[Mode]\nLangStr=") +
                                  (how.language == Language::Japanese ? "JPN" : "ENU") +
                                  "\nSimpleTitleIndex=" + ((how.byte & 0x10) != 0 ? "1" : "0") +
                                  "\nFightFunc=" + std::string(how.family.name) + "\n";
  platform.typed = {"", "1", "a.txt"};
  std::istringstream lines{std::string(typed)};
  for (std::string line; platform.typed.size() < kMostTyped && std::getline(lines, line);)
    platform.typed.push_back(line);
  TSession session(platform);
  EndlessRuns endlessRuns(session, platform);
  session.channel.add(endlessRuns);
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
  const How how(in.byte());
  const std::string_view rest = in.rest();
  const std::size_t separator = std::min(rest.rfind(kSeparator), rest.size());
  const std::string_view source = rest.substr(0, separator);
  const std::string_view typed = rest.substr(std::min(separator + 1, rest.size()));
  const auto [console, files, actions] = run(how, source, typed);
  require(Transcript(console, files, actions) == run(how, source, typed), "two sessions differ:\n" + console);
  requireUtf8(console, "the console");
  for (const auto& [name, text] : files)
    if (name != "a.txt") requireUtf8(text, name);
  return 0;
}
