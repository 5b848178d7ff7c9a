#include "check/CheckRows.h"

namespace zelvaro::check {

// clang-format off
#define ZELVARO_FILES(X)                                                                                 \
  X(CheckFile) X(Checker) X(Expected) X(Explain) X(FormatText) X(Grade) X(GradeFormats) X(Help) X(Init)  \
  X(Listing) X(LoopHints) X(Options) X(Run) X(RunHints) X(SourceHints) X(Task)
// clang-format on

#define ZELVARO_DECLARE(file) RowList rowsOf##file();
ZELVARO_FILES(ZELVARO_DECLARE)
#undef ZELVARO_DECLARE

RowList checkRows() {
  RowList all;
#define ZELVARO_APPEND(file) \
  for (const MessageRow* row : rowsOf##file()) all.push_back(row);
  ZELVARO_FILES(ZELVARO_APPEND)
#undef ZELVARO_APPEND
  return all;
}
#undef ZELVARO_FILES

}  // namespace zelvaro::check
