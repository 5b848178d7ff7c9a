// A source and typed lines through a whole pipeline.  Each input runs twice; what is shown and written must be
// the same, or something lives on from one session to the next, or was read before it was written.
#include <sstream>

#include "Fuzz.h"
#include "comet2/RunLoop.h"
#include "support/Dialogue.h"

namespace zelvaro::fuzz {
namespace {

constexpr char kSeparator = '\x1E';  ///< the typed lines are after the last one
constexpr std::size_t kMostTyped = 24;
constexpr std::int64_t kMostSteps = 70'000;  ///< enough to run through an empty memory

/// Where a learner's program would not come to an end, its first word is made a RET.  A copy of the machine
/// finds that out when the start words of a run are issued.
class EndlessRuns : public DiagSink {
 public:
  explicit EndlessRuns(test::Dialogue& d) : d_(d) {}
  void take(const Diagnostic& d) override {
    if (d.row->code == "run-start" && !comesToAnEnd()) d_.session().m.Memory[0] = 0x8100;
  }

 private:
  bool comesToAnEnd() const try {
    TSession& s = d_.session();
    Tcomet2 m = s.m;
    m.PR = 0;
    test::LimitedPlatform platform(d_.platform);
    ConsoleSink sink(platform, s.wording);
    TimeData time;
    const RunEnvironment env{platform, sink, time, family(s.wording.family), s.b.PrgEndAdr};
    GuardedStores watch(m, env);
    std::int64_t steps = kMostSteps;
    return runLoop(m, {platform, sink}, watch, env.family.runLimit, steps) != Stop::Steps;
  } catch (const test::TooMuchOutput&) {
    return false;
  }

  test::Dialogue& d_;
};

/// What a session shows, writes and asks of the outside world.
using Transcript = std::tuple<std::string, test::Files, std::vector<std::string>>;

Transcript run(const How& how, std::string_view source, std::string_view typed) {
  test::Dialogue d;
  EndlessRuns endlessRuns(d);
  d.alsoTakes = &endlessRuns;
  const std::string language = how.language == Language::Japanese ? "JPN" : "ENU",
                    title = (how.byte & 0x10) != 0 ? "1" : "0";
  d.platform.files["a.txt"] = source;
  d.platform.files["zelvaro.ini"] = "[Mode]\nLangStr=" + language + "\nSimpleTitleIndex=" + title +
                                    "\nFightFunc=" + std::string(how.family.name) + "\n";
  std::vector<std::string> lines{"", "1", "a.txt"};
  std::istringstream rest{std::string(typed)};
  for (std::string line; lines.size() < kMostTyped && std::getline(rest, line);) lines.push_back(line);
  d.run(lines);
  return {d.platform.console, d.platform.files, d.platform.actions};
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
