// A task file of any bytes: it is a task, or there is one message that says why not.
#include "check/Task.h"

#include "Fuzz.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zelvaro::fuzz;
  const auto parsed = zelvaro::check::parseTask(Input(data, size).rest(), "task.toml");
  if (const auto* fault = std::get_if<zelvaro::check::Remark>(&parsed)) {
    require(!fault->text.en.empty() && !fault->text.ja.empty(), "a fault without words");
    return 0;
  }
  const auto& task = std::get<zelvaro::check::Task>(parsed);
  std::int64_t points = task.rules.points.value_or(0);
  for (const auto& c : task.cases) {
    points += c.points;
    for (const auto* settings : {&c.before, &c.after})
      for (const auto& s : *settings) require(!s.words.empty(), "a place without words");
  }
  require(!task.cases.empty() && points == task.points, "the points do not add up");
  return 0;
}
