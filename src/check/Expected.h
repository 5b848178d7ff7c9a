// Compares what a run writes with what is expected, line by line while it is written.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "check/Result.h"

namespace zelvaro::check {

class Expected {
 public:
  /// With `blanksCount` false, blanks at the end of a line are ignored.
  explicit Expected(std::vector<std::string> lines, bool blanksCount = true)
      : lines_(std::move(lines)), blanksCount_(blanksCount) {}

  /// Takes what one OUT has written.  It may contain line feeds of its own.
  void take(std::string_view text);
  /// The first difference, after the last OUT; nothing if there is none.
  std::optional<Remark> difference() const;

 private:
  void takeLine(std::string_view line);

  std::vector<std::string> lines_;
  bool blanksCount_;
  std::size_t next_ = 0;  ///< index of the line to compare
  std::optional<Remark> first_;
};

}  // namespace zelvaro::check
