// The examples of --explain, for every code that a source can draw.
#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <sstream>

#include "check/CheckRows.h"
#include "check/Explain.h"
#include "check/Hints.h"
#include "check/Run.h"

namespace zelvaro::check {
namespace {

using Codes = std::set<std::string, std::less<>>;

/// All codes that a source gets: of its checks, of its run, of hints.
Codes drawn(FamilyId pipeline, Frame frame, std::string_view text) {
  constexpr std::int64_t kSteps = 100'000;
  Codes out;
  const engine::Assembled assembled = engine::assemble(sourceOf(frame, text), {.pipeline = pipeline});
  for (const engine::Finding& f : assembled.findings()) out.emplace(f.code);
  for (const Remark& hint : sourceHints(assembled)) out.emplace(hint.code);
  if (!assembled.ok()) return out;
  RunResult run(assembled);
  RunPlan plan;
  plan.maxSteps = kSteps;
  plan.input = [] { return std::nullopt; };
  Runner runner(run.machine, plan);
  run.stop = runner.finish();
  run.steps = run.machine.steps();
  for (const RunMessage& m : runner.takeMessages()) out.emplace(m.finding.code);
  for (const RunMessage& m : stopMessages(run.machine)) out.emplace(m.finding.code);
  if (run.stop == Stop::Steps) out.emplace(stepLimitRemark(kSteps).code);
  for (const Remark& hint : runHints(run)) out.emplace(hint.code);
  return out;
}

TEST(Explain, FaultyTextsDrawTheirCodeAndMendedOnesDoNot) {
  Codes known;
  for (const Example& e : examples()) {
    EXPECT_TRUE(known.emplace(e.code).second) << e.code << " has two examples";
    EXPECT_TRUE(drawn(e.pipeline, e.frame, e.faulty).contains(e.code)) << e.code << ": " << e.faulty;
    const Codes mended = drawn(e.pipeline, e.frame, e.mended);
    EXPECT_FALSE(mended.contains(e.code)) << e.code << ": " << e.mended;
    Options options;
    options.explain = e.code;
    EXPECT_TRUE(explanation(options)) << e.code;
  }
  // those without an example are in the table of what no source reaches
  std::ifstream file(ZELVARO_ROOT "/docs/ARCHITECTURE.md");
  std::stringstream text;
  text << file.rdbuf();
  const std::string all = text.str();
  const std::string table = all.substr(all.find("## Messages that no source can reach"));
  const auto isListed = [&](std::string_view code) {
    return table.find("`" + std::string(code) + "`") != table.npos;
  };
  for (const engine::CodeInfo& c : engine::codes()) {
    if (c.severity == Severity::Notice) continue;
    EXPECT_NE(known.contains(c.code), isListed(c.code)) << c.code;
  }
  for (const MessageRow* row : checkRows()) {
    if (!row->code.starts_with("hint-")) continue;
    EXPECT_TRUE(known.contains(row->code)) << row->code;
  }
}

}  // namespace
}  // namespace zelvaro::check
