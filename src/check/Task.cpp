#include "check/Task.h"

#include <toml++/toml.h>

#include <algorithm>
#include <charconv>
#include <initializer_list>
#include <numeric>

#include "check/Lines.h"
#include "check/Remarks.h"
#include "diag/Limits.h"

namespace zelvaro::check {
namespace {

constexpr Message notToml = notice("task-toml", args("name", "number", "reason"),
                                   {.ja = "{name} の {number} 行目は TOML として正しくない: {reason}",
                                    .en = "{name}: line {number} is no TOML: {reason}"});
constexpr Message unknownKey = notice("task-key", args("name", "number", "key"),
                                      {.ja = "{name} の {number} 行目: {key} という項目はない。",
                                       .en = "{name}: line {number}: there is no key {key}."});
constexpr Message badValue = notice("task-value", args("name", "number", "key", "allowed"),
                                    {.ja = "{name} の {number} 行目: {key} には {allowed} を書く。",
                                     .en = "{name}: line {number}: {key} takes {allowed}."});
constexpr Message noCases =
    notice("task-no-case", args("name"),
           {.ja = "{name} には [[case]] が 1 つもない。", .en = "{name} has no [[case]]."});
constexpr Message badPoints =
    notice("task-points", args("name", "points", "sum"),
           {.ja = "{name} の points は {points} だが、case と rules の合計は {sum} である。",
            .en = "{name}: points is {points}, but those of the cases and the rules add up to {sum}."});

constexpr Message wantsText = notice("task-wants-text", args(), {.ja = "文字列", .en = "a text"});
constexpr Message wantsFlag =
    notice("task-wants-flag", args(), {.ja = "true か false", .en = "true or false"});
constexpr Message wantsNumber =
    notice("task-wants-number", args(), {.ja = "0 以上の整数", .en = "a whole number, 0 or more"});
constexpr Message wantsTexts =
    notice("task-wants-texts", args(), {.ja = "文字列の配列", .en = "an array of texts"});
constexpr Message wantsTable = notice("task-wants-table", args(), {.ja = "表", .en = "a table"});
constexpr Message wantsWords =
    notice("task-wants-words", args(),
           {.ja = "-32768 から 65535 までの整数、\"#00FF\" の形の語、またはその配列",
            .en = "a number from -32768 to 65535, a word as \"#00FF\", or an array of them"});

constexpr std::int64_t kMostPoints = 1'000'000;
constexpr std::int64_t kMostSteps = 1'000'000'000'000;

struct Fault {
  Remark remark;
};

std::optional<std::uint16_t> wordOf(const toml::node& node) {
  std::int64_t n = 0;
  if (const auto number = node.value_exact<std::int64_t>()) {
    n = *number;
  } else if (const auto text = node.value_exact<std::string>()) {
    const std::size_t skip = text->starts_with("0x") ? 2 : text->starts_with('#') ? 1 : 0;
    const char* const end = text->data() + text->size();
    const auto [rest, error] = std::from_chars(text->data() + skip, end, n, 16);
    if (skip == 0 || error != std::errc() || rest != end || n < 0) return std::nullopt;
  } else {
    return std::nullopt;
  }
  if (n < kLeastSigned || n > kGreatestUnsigned) return std::nullopt;
  return static_cast<std::uint16_t>(n);
}

/// Reads the members of a table.  A member that nobody asked for is a fault, found by end().
class Reader {
 public:
  Reader(const toml::table& table, const std::string& name) : table_(table), name_(name) {}

  void take(std::string_view key, std::string& out) {
    if (const toml::node* n = find(key)) out = valueOf<std::string>(key, *n, wantsText);
  }
  void take(std::string_view key, bool& out) {
    if (const toml::node* n = find(key)) out = valueOf<bool>(key, *n, wantsFlag);
  }
  template <class Number>
  void take(std::string_view key, Number& out, std::int64_t most) {
    const toml::node* n = find(key);
    if (n == nullptr) return;
    const std::int64_t value = valueOf<std::int64_t>(key, *n, wantsNumber);
    if (value < 0 || value > most) refuse(key, *n, wantsNumber);
    out = static_cast<Number>(value);
  }
  /// An array of texts, or one text, which is an array of its lines.
  void take(std::string_view key, std::vector<std::string>& out) {
    const toml::node* n = find(key);
    if (n == nullptr) return;
    if (const auto text = n->value_exact<std::string>()) {
      out = linesOfText(*text);
      return;
    }
    if (!n->is_array()) refuse(key, *n, wantsTexts);
    for (const toml::node& element : *n->as_array())
      out.push_back(valueOf<std::string>(key, element, wantsTexts));
  }
  void take(std::string_view key, std::vector<Setting>& out) {
    const toml::table* places = table(key);
    if (places == nullptr) return;
    for (const auto& [place, node] : *places) {
      Setting s{std::string(place.str()), {}};
      if (const toml::array* several = node.as_array()) {
        for (const toml::node& element : *several) s.words.push_back(word(s.place, element));
      } else {
        s.words.push_back(word(s.place, node));
      }
      if (s.words.empty() || (s.registerNumber() >= 0 && s.words.size() > 1))
        refuse(s.place, node, wantsWords);
      out.push_back(std::move(s));
    }
  }
  /// The table of that name, or null if there is none.
  const toml::table* table(std::string_view key) {
    const toml::node* n = find(key);
    if (n != nullptr && !n->is_table()) refuse(key, *n, wantsTable);
    return n == nullptr ? nullptr : n->as_table();
  }
  const toml::node* find(std::string_view key) {
    asked_.emplace_back(key);
    return table_.get(key);
  }
  void end() const {
    for (const auto& [key, node] : table_)
      if (std::find(asked_.begin(), asked_.end(), key.str()) == asked_.end())
        throw Fault{remark(unknownKey, 0, name_, lineOf(node), std::string(key.str()))};
  }
  [[noreturn]] void refuse(std::string_view key, const toml::node& node, const Message<0>& wanted) const {
    throw Fault{remark(badValue, 0, name_, lineOf(node), key, wanted)};
  }

 private:
  static int lineOf(const toml::node& node) { return static_cast<int>(node.source().begin.line); }
  template <class Value>
  Value valueOf(std::string_view key, const toml::node& node, const Message<0>& wanted) const {
    const auto value = node.value_exact<Value>();
    if (!value) refuse(key, node, wanted);
    return *value;
  }
  std::uint16_t word(std::string_view key, const toml::node& node) const {
    const std::optional<std::uint16_t> w = wordOf(node);
    if (!w) refuse(key, node, wantsWords);
    return *w;
  }

  const toml::table& table_;
  const std::string& name_;
  std::vector<std::string> asked_;
};

TaskRules rulesOf(const toml::table& table, const std::string& name) {
  TaskRules rules;
  Reader r(table, name);
  r.take("must", rules.must);
  r.take("must-not", rules.mustNot);
  r.take("labels", rules.labels);
  r.take("warnings", rules.warnings);
  r.take("words", rules.maxWords, 0x10000);
  if (r.find("points") != nullptr) r.take("points", rules.points.emplace(), kMostPoints);
  r.end();
  return rules;
}

TaskCase caseOf(const toml::table& table, const std::string& name, std::size_t number,
                std::int64_t maxSteps) {
  TaskCase c;
  c.name = std::to_string(number);
  c.maxSteps = maxSteps;
  bool trims = false;
  Reader r(table, name);
  r.take("name", c.name);
  r.take("hidden", c.hidden);
  r.take("points", c.points, kMostPoints);
  r.take("input", c.input);
  if (r.find("output") != nullptr) r.take("output", c.output.emplace());
  r.take("ignore-trailing-blanks", trims);
  r.take("before", c.before);
  r.take("after", c.after);
  r.take("steps", c.maxSteps, kMostSteps);
  r.end();
  c.blanksCount = !trims;
  return c;
}

Task taskOf(const toml::table& table, const std::string& name) {
  Task task;
  std::int64_t maxSteps = Task::kUsualSteps;
  std::optional<int> points;
  Reader r(table, name);
  r.take("title", task.title);
  r.take("driver", task.driver);
  r.take("steps", maxSteps, kMostSteps);
  if (r.find("points") != nullptr) r.take("points", points.emplace(), kMostPoints);
  if (const toml::table* rules = r.table("rules")) task.rules = rulesOf(*rules, name);
  if (const toml::node* cases = r.find("case")) {
    if (!cases->is_array_of_tables()) r.refuse("case", *cases, wantsTable);
    for (const toml::node& one : *cases->as_array())
      task.cases.push_back(caseOf(*one.as_table(), name, task.cases.size() + 1, maxSteps));
  }
  r.end();
  if (task.cases.empty()) throw Fault{remark(noCases, 0, name)};
  std::int64_t sum = task.rules.points.value_or(0);
  for (const TaskCase& c : task.cases) sum += c.points;
  if (sum > kMostPoints || (points && *points != sum))
    throw Fault{remark(badPoints, 0, name, points.value_or(0), sum)};
  task.points = static_cast<int>(sum);
  return task;
}

}  // namespace

int Setting::registerNumber() const {
  return place.size() == 3 && place.starts_with("GR") && place[2] >= '0' && place[2] <= '7' ? place[2] - '0'
                                                                                            : -1;
}

std::variant<Task, Remark> parseTask(std::string_view bytes, const std::string& name) {
  try {
    return taskOf(toml::parse(bytes), name);
  } catch (const toml::parse_error& e) {
    return remark(notToml, 0, name, static_cast<int>(e.source().begin.line), e.description());
  } catch (const Fault& fault) {
    return fault.remark;
  }
}

RowList rowsOfTask() {
  return rows(notToml, unknownKey, badValue, noCases, badPoints, wantsText, wantsFlag, wantsNumber,
              wantsTexts, wantsTable, wantsWords);
}

}  // namespace zelvaro::check
