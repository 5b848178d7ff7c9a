#include "check/Watch.h"

#include <string>
#include <vector>

#include "platform/Surroundings.h"

namespace zelvaro::check {
namespace {

constexpr int kBetweenLooks = 200;  ///< milliseconds
/// Between two checks on something that is no terminal, which is cleared.
constexpr std::string_view kRule = "----\n";
constexpr std::string_view kClear = "\033[H\033[2J";

/// One value for the state of all files; a file that appears or goes is a change, too.
std::vector<std::uint64_t> stampsOf(const Options& o) {
  std::vector<std::uint64_t> out;
  for (const std::string& file : o.files) out.push_back(stampOfFile(file));
  for (const std::string* more : {&o.input, &o.expect})
    if (!more->empty()) out.push_back(stampOfFile(*more));
  return out;
}

}  // namespace

Status watchFiles(const Options& options, Screen& screen, const std::function<Status()>& check) {
  for (;;) {
    const auto before = stampsOf(options);
    const Status status = check();
    screen.flush();
    while (stampsOf(options) == before) {
      if (screen.isGone()) return status;
      waitMilliseconds(kBetweenLooks);
    }
    if (screen.errIsTerminal()) {
      screen.control(kClear);
    } else {
      screen.err(kRule, Shade::Plain);
    }
  }
}

}  // namespace zelvaro::check
