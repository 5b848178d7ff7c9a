#include "check/Grade.h"

#include <fmt/format.h>

#include <algorithm>

#include "MoziCode/Cp932.h"
#include "MoziCode/Utf.h"
#include "check/Remarks.h"
#include "check/Run.h"

namespace zelvaro::check {
namespace {

constexpr Message notAssembled =
    notice("grade-not-assembled", args("count", "number", "words"),
           {.ja = "ソースに {count} 個のエラーがある。最初は {number} 行目: {words}",
            .en = "The source has {count} errors, the first one in line {number}: {words}"});
constexpr Message opcodeMissing =
    notice("grade-opcode-missing", args("op"), {.ja = "{op} が使われていない。", .en = "{op} is not used."});
constexpr Message opcodeUsed = notice(
    "grade-opcode-used", args("number", "op"),
    {.ja = "{number} 行目で {op} が使われている。", .en = "Line {number} uses {op}, which is not allowed."});
constexpr Message labelMissing =
    notice("grade-label-missing", args("label"),
           {.ja = "ラベル {label} がない。", .en = "There is no label {label}."});
constexpr Message hasWarnings = notice(
    "grade-warnings", args("count"), {.ja = "警告が {count} 個ある。", .en = "There are {count} warnings."});
constexpr Message tooLong = notice("grade-words", args("words", "most"),
                                   {.ja = "プログラムは {words} 語ある。{most} 語までのはず。",
                                    .en = "The program has {words} words; {most} are allowed."});
constexpr Message wrongWord =
    notice("grade-word", args("place", "got", "signed", "expected", "expectedSigned"),
           {.ja = "{place} は #{got} ({signed}) だが、#{expected} ({expectedSigned}) のはず。",
            .en = "{place} is #{got} ({signed}), expected is #{expected} ({expectedSigned})."});
constexpr Message hiddenFails =
    notice("grade-hidden", args(), {.ja = "非公開の検査に失敗した。", .en = "A hidden case fails."});

/// A submission with its driver, on its way through the cases of a task.
class Marking {
 public:
  Marking(const Task& task, const std::string& path) : task_(task) { grade_.path = path; }

  /// The text of the driver is put before that of the submission, both as UTF-8.
  void assemble(const std::string& driver, std::string_view bytes, engine::Options options) {
    driverLines_ = static_cast<int>(std::count(driver.begin(), driver.end(), '\n'));
    if (driver.empty()) {
      assembled_ = engine::assemble(bytes, options);
      return;
    }
    options.encoding = engine::Encoding::Utf8;
    assembled_ = engine::assemble(driver + fileTextAsUtf8(bytes), options);
  }
  void refuse(engine::Text fault) {
    grade_.fault = std::move(fault);
    grade_.status = Status::File;
  }

  Grade make() {
    const std::vector<engine::Text> broken = assembled_ ? brokenRules() : std::vector<engine::Text>{};
    if (assembled_ && !assembled_->ok()) grade_.fault = whyNotAssembled();
    if (!grade_.fault && !task_.rules.points && !broken.empty()) grade_.fault = broken.front();
    for (const TaskCase& c : task_.cases) {
      Mark mark{c.name, c.hidden, false, 0, c.points, {}};
      if (!grade_.fault) mark.reasons = faultsOf(c);
      finish(mark);
    }
    if (task_.rules.points) {
      Mark mark{"rules", false, false, 0, *task_.rules.points, broken};
      finish(mark);
    }
    if (grade_.status == Status::Clean && grade_.points < task_.points) grade_.status = Status::Differs;
    return std::move(grade_);
  }

 private:
  void finish(Mark& mark) {
    mark.passed = !grade_.fault && mark.reasons.empty();
    mark.points = mark.passed ? mark.of : 0;
    if (mark.hidden && !mark.reasons.empty()) mark.reasons = {remark(hiddenFails, 0).text};
    grade_.points += mark.points;
    grade_.marks.push_back(std::move(mark));
  }

  engine::Text whyNotAssembled() const {
    for (const engine::Finding& f : assembled_->findings()) {
      if (f.severity != Severity::Error) continue;
      const int line = std::max(f.line - driverLines_, 0), count = std::max(assembled_->tallies().errors, 1);
      return {remark(notAssembled, 0, count, line, f.text.ja).text.ja,
              remark(notAssembled, 0, count, line, f.text.en).text.en};
    }
    return {};
  }

  std::vector<engine::Text> brokenRules() const {
    std::vector<engine::Text> out;
    const auto broken = [&]<std::size_t N, class... Arg>(const Message<N>& row, Arg&&... arg) {
      out.push_back(remark(row, 0, std::forward<Arg>(arg)...).text);
    };
    const std::vector<engine::ListingRow> listing = assembled_->listing();
    const auto lineWith = [&](const std::string& opcode) {
      for (const engine::ListingRow& r : listing)
        if (r.line > driverLines_ && r.opcode == opcode) return r.line - driverLines_;
      return 0;
    };
    for (const std::string& op : task_.rules.must)
      if (lineWith(op) == 0) broken(opcodeMissing, op);
    for (const std::string& op : task_.rules.mustNot)
      if (const int line = lineWith(op); line > 0) broken(opcodeUsed, line, op);
    for (const std::string& label : task_.rules.labels)
      if (!hasLabel(label)) broken(labelMissing, label);
    if (const int count = warnings(); count > 0 && !task_.rules.warnings) broken(hasWarnings, count);
    if (const int words = size(); task_.rules.maxWords > 0 && words > task_.rules.maxWords)
      broken(tooLong, words, task_.rules.maxWords);
    return out;
  }
  bool hasLabel(const std::string& name) const {
    const auto isIt = [&](const auto& x, int line) { return x.name == name && line > driverLines_; };
    const auto labels = assembled_->labels();
    const auto programs = assembled_->programs();
    return std::any_of(labels.begin(), labels.end(), [&](const auto& l) { return isIt(l, l.line); }) ||
           std::any_of(programs.begin(), programs.end(), [&](const auto& p) { return isIt(p, p.startLine); });
  }
  int warnings() const {
    const auto findings = assembled_->findings();
    return static_cast<int>(std::count_if(findings.begin(), findings.end(), [&](const engine::Finding& f) {
      return f.severity == Severity::Warning && f.counted && (f.line == 0 || f.line > driverLines_);
    }));
  }
  int size() const {
    int words = 0;
    for (const engine::Program& p : assembled_->programs())
      if (p.startLine > driverLines_) words += p.size;
    return words;
  }

  /// Runs a case; the reasons why it fails.
  std::vector<engine::Text> faultsOf(const TaskCase& c) const {
    engine::Machine machine(*assembled_);
    std::vector<engine::Text> out;
    for (const Setting& s : c.before) set(machine, s, out);
    std::optional<Expected> expected;
    if (c.output) expected.emplace(*c.output, c.blanksCount);
    RunPlan plan;
    plan.maxSteps = c.maxSteps;
    std::size_t next = 0;
    plan.input = [&]() -> std::optional<std::string> {
      if (next == c.input.size()) return std::nullopt;
      return c.input[next++];
    };
    plan.output = [&](const std::string& text) {
      if (expected) expected->take(text);
    };
    Runner runner(machine, plan);
    const Stop stop = runner.finish();
    if (stop == Stop::Steps) out.push_back(stepLimitRemark(c.maxSteps).text);
    for (const RunMessage& m : stopMessages(machine)) out.push_back(m.finding.text);
    if (expected)
      if (const auto difference = expected->difference()) out.push_back(difference->text);
    if (stop == Stop::End)
      for (const Setting& s : c.after) compare(machine, s, out);
    return out;
  }
  std::optional<int> addressOf(const Setting& s, std::vector<engine::Text>& faults) const {
    const std::optional<int> address = assembled_->addressOf(s.place);
    if (!address) faults.push_back(remark(labelMissing, 0, s.place).text);
    return address;
  }
  void set(engine::Machine& machine, const Setting& s, std::vector<engine::Text>& faults) const {
    if (const int gr = s.registerNumber(); gr >= 0) return machine.setRegister(gr, s.words.front());
    std::optional<int> address = addressOf(s, faults);
    for (const std::uint16_t word : s.words)
      if (address) machine.setWord((*address)++ & 0xFFFF, word);
  }
  void compare(const engine::Machine& machine, const Setting& s, std::vector<engine::Text>& faults) const {
    const auto one = [&](const std::string& place, std::uint16_t got, std::uint16_t wanted) {
      if (got == wanted) return;
      faults.push_back(remark(wrongWord, 0, place, fmt::format("{:04X}", got), static_cast<std::int16_t>(got),
                              fmt::format("{:04X}", wanted), static_cast<std::int16_t>(wanted))
                           .text);
    };
    if (const int gr = s.registerNumber(); gr >= 0)
      return one(s.place, machine.registers().gr.at(static_cast<std::size_t>(gr)), s.words.front());
    const std::optional<int> address = addressOf(s, faults);
    for (int i = 0; address && i < static_cast<int>(s.words.size()); ++i)
      one(i == 0 ? s.place : fmt::format("{}+{}", s.place, i), machine.word(*address + i),
          s.words[static_cast<std::size_t>(i)]);
  }

  const Task& task_;
  int driverLines_ = 0;  ///< lines before those of the submission
  std::optional<engine::Assembled> assembled_;
  Grade grade_;
};

}  // namespace

Grade gradeBytes(const Task& task, const std::string& driver, std::string_view bytes,
                 const engine::Options& options) {
  Marking marking(task, options.name);
  marking.assemble(driver, bytes, options);
  return marking.make();
}

Grade gradeOfFault(const Task& task, const std::string& path, engine::Text fault) {
  Marking marking(task, path);
  marking.refuse(std::move(fault));
  return marking.make();
}

RowList rowsOfGrade() {
  return rows(notAssembled, opcodeMissing, opcodeUsed, labelMissing, hasWarnings, tooLong, wrongWord,
              hiddenFails);
}

}  // namespace zelvaro::check
