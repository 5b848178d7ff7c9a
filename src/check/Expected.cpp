#include "check/Expected.h"

#include "MoziCode/Utf.h"
#include "check/Remarks.h"

namespace zelvaro::check {
namespace {

constexpr Message differs =
    notice("output-differs", args("number", "got", "expected"),
           {.ja = "出力の {number} 行目は \"{got}\" だが、\"{expected}\" のはず。",
            .en = "Line {number} of the output is \"{got}\", expected is \"{expected}\"."});
constexpr Message isMissing =
    notice("output-missing", args("number", "expected"),
           {.ja = "出力の {number} 行目がない。\"{expected}\" のはず。",
            .en = "Line {number} of the output is missing, expected is \"{expected}\"."});
constexpr Message isExtra = notice("output-extra", args("number", "got"),
                                   {.ja = "出力の {number} 行目 \"{got}\" は余分である。",
                                    .en = "Line {number} of the output, \"{got}\", is more than expected."});

/// As much of a line as a message quotes.
std::string quotable(std::string_view line) {
  constexpr std::size_t kMost = 200;
  const std::string_view first = firstBytes(line, kMost);
  return std::string(first) + (first.size() < line.size() ? "..." : "");
}

std::string_view withoutTrailingBlanks(std::string_view line) {
  return line.substr(0, line.find_last_not_of(" \t") + 1);
}

}  // namespace

void Expected::take(std::string_view text) {
  for (;;) {
    const std::size_t end = text.find('\n');
    takeLine(text.substr(0, end));
    if (end == text.npos) return;
    text.remove_prefix(end + 1);
  }
}

void Expected::takeLine(std::string_view line) {
  if (first_) return;
  const int number = static_cast<int>(next_) + 1;
  if (next_ == lines_.size()) {
    first_ = remark(isExtra, 0, number, quotable(line));
    return;
  }
  const std::string_view expected = lines_[next_++];
  const bool same =
      blanksCount_ ? line == expected : withoutTrailingBlanks(line) == withoutTrailingBlanks(expected);
  if (!same) first_ = remark(differs, 0, number, quotable(line), quotable(expected));
}

std::optional<Remark> Expected::difference() const {
  if (first_ || next_ == lines_.size()) return first_;
  return remark(isMissing, 0, static_cast<int>(next_) + 1, quotable(lines_[next_]));
}

RowList rowsOfExpected() {
  return rows(differs, isMissing, isExtra);
}

}  // namespace zelvaro::check
