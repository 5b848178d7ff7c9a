// What the page works on: one source, and its machine.
#pragma once

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "Journey.h"
#include "Json.h"
#include "SourceJson.h"
#include "engine/Machine.h"

namespace zelvaro::web {

class Desk {
 public:
  /// Puts the source into a machine at step 0, or takes the machine away if it has no image.
  void load(const engine::Assembled& assembled);
  /// The machine. Throws std::logic_error if there is none.
  engine::Machine& machine();

  void begin(GoKind kind, std::int64_t amount, int address);
  /// Goes on; returns whether there is more to do.
  bool slice(std::int64_t steps);
  /// Ends the journey before it has come to its end.
  void pause();

  /// Sets the breakpoints to the first instruction of these lines; returns the lines that have one.
  std::vector<int> setBreakpoints(const std::vector<int>& lines);
  /// The address of the first instruction of a line, -1 for none.
  int addressOfLine(int line) const;

  /// The members of State. The events are those that were not in a State before.
  void putState(Json& out);
  void putMemory(Json& out, int from, int count);
  /// The lines that were executed, by their instruction that was executed most often; `most` of them at most, the
  /// hottest one first, or all in the order of the lines if it is 0.
  void putCounts(Json& out, std::size_t most);

 private:
  const char* stopName();
  void putRegisters(Json& out);
  void putStack(Json& out);
  void putEvents(Json& out);

  struct Row {
    std::string label, statement;
  };
  std::optional<engine::Machine> machine_;
  std::optional<Journey> journey_;
  Lines lines_;
  std::unordered_map<int, Row> rows_;         ///< by address
  std::unordered_map<int, int> firstOfLine_;  ///< the address of a line's first instruction
  std::vector<int> breakpointLines_;
  std::size_t eventsSent_ = 0;
  std::size_t linesGiven_ = 0;
  bool isPaused_ = false, isAtBreakpoint_ = false;

 public:
  void giveLine(std::string line);
  void forgetFuture();
  const Lines& lines() const { return lines_; }
};

}  // namespace zelvaro::web
