#include <algorithm>

#include "platform/Console.h"

namespace zelvaro {

std::optional<std::string> ConsoleInput::readLine() {
  std::string line;
  bool any = false;
  bool ended = false;
  while (!ended) {
    if (next_ == buffer_.size()) {
      if (!refill()) {
        if (!any) return std::nullopt;
        break;
      }
    }
    any = true;
    const std::size_t lineFeed = buffer_.find('\n', next_);
    const std::size_t end = std::min(lineFeed, buffer_.size());
    line.append(buffer_, next_, std::min(end - next_, kLongestLine - line.size()));
    next_ = end;
    if (lineFeed != std::string::npos) {
      ++next_;
      if (!line.empty() && line.back() == '\r') line.pop_back();
      ended = true;
    } else {
      ended = endsByKey();
    }
  }
  return line;
}

}  // namespace zelvaro
