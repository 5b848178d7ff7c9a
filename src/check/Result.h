// What has become of a file: values that the formats turn into text.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "check/Status.h"
#include "engine/Machine.h"

namespace zelvaro::check {

/// A message of the checker itself: a hint, a difference, a limit.  Counted in no tally.
struct Remark {
  std::string_view code;
  int line = 0, column = 0, length = 0;  ///< as engine::Finding has them
  engine::Text text;
};

/// A message of a run, or its stop.
struct RunMessage {
  engine::Finding finding;
  bool isStop = false;
};

struct RunResult {
  explicit RunResult(const engine::Assembled& assembled) : machine(assembled) {}

  Stop stop = Stop::End;
  std::int64_t steps = 0;
  std::vector<RunMessage> messages;  ///< in the order in which they came
  std::vector<Remark> remarks;       ///< the limit that was reached, the difference of the output
  std::string output;                ///< what OUT wrote, a line feed after each; kept for a document only
  bool outputIsCut = false;          ///< there was more of it than is kept
  std::optional<bool> isAsExpected;  ///< none without --expect
  bool readerIsGone = false;         ///< the run was given up, as nobody reads what it writes
  engine::Machine machine;           ///< at the stop
};

struct FileResult {
  std::string path;
  Status status = Status::Clean;
  std::optional<Remark> fault;  ///< why the file could not be read, or a report not written
  std::optional<engine::Assembled> assembled;
  std::vector<Remark> hints;
  std::optional<RunResult> run;
};

}  // namespace zelvaro::check
