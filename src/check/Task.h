// A task to mark submissions by: what a TOML file says.  docs/CHECK.en.md describes it for teachers.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "check/Result.h"

namespace zelvaro::check {

/// Words at a place: of memory from an address on, or a register.
struct Setting {
  std::string place;  ///< "GR1", a label, "PROG.LABEL", "16", "0x10"
  std::vector<std::uint16_t> words;
  /// The number of the register, or -1 for a place in memory.
  int registerNumber() const;
};

struct TaskCase {
  std::string name;
  bool hidden = false;  ///< what it gives and expects is not shown
  int points = 1;
  std::vector<std::string> input;
  std::optional<std::vector<std::string>> output;  ///< none: whatever OUT writes is right
  bool blanksCount = true;                         ///< blanks at the end of a line of output
  std::vector<Setting> before, after;
  std::int64_t maxSteps = 0;
};

/// What the source of a submission must keep to.
struct TaskRules {
  std::vector<std::string> must, mustNot;  ///< opcodes
  std::vector<std::string> labels;         ///< that must exist
  bool warnings = true;                    ///< warnings are allowed
  int maxWords = 0;                        ///< of the submission; 0: no limit
  std::optional<int> points;               ///< for keeping to them; none: whoever breaks one gets no points
};

struct Task {
  static constexpr std::int64_t kUsualSteps = 1'000'000;
  std::string title;
  int points = 0;      ///< of the cases and the rules together
  std::string driver;  ///< path of a source put before each submission, relative to the task; may be empty
  TaskRules rules;
  std::vector<TaskCase> cases;
};

/// Reads the bytes of a task file.  `name` is the file's name in messages.
std::variant<Task, Remark> parseTask(std::string_view bytes, const std::string& name);

}  // namespace zelvaro::check
