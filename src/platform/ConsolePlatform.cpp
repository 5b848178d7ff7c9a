#include "platform/ConsolePlatform.h"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <limits>

#include "platform/Failures.h"

namespace zelvaro {
namespace {

std::uint32_t seed() {
  try {
    return std::random_device{}();
  } catch (const std::exception&) {
    return static_cast<std::uint32_t>(std::chrono::system_clock::now().time_since_epoch().count());
  }
}

}  // namespace

ConsolePlatform::ConsolePlatform(int inputFd, int outputFd)
    : input_(inputFd), output_(outputFd), random_(seed()) {}

/// When nobody follows the console any more the dialogue ends, even if more input is waiting.
std::optional<std::string> ConsolePlatform::readLine() {
  output_.flush();
  if (output_.readerIsGone()) return std::nullopt;
  return input_.readLine();
}

std::optional<ConsoleSize> ConsolePlatform::consoleSize() {
  if (!input_.isTerminal() || !output_.isTerminal()) return std::nullopt;
  return output_.size();
}

std::unique_ptr<OutputFile> ConsolePlatform::createFile(const std::string& path, FileFailure* failure,
                                                        FileWriting writing) {
  std::unique_ptr<TemporaryOutput> file = temporaryOutput(writing);
  if (file->open(path)) return file;
  tell(failure, file->failure());
  return nullptr;
}

std::optional<std::string> ConsolePlatform::folderListing(const std::string& path, FileFailure* failure) {
  auto names = entriesOf(path, failure);
  if (!names) return std::nullopt;
  std::sort(names->begin(), names->end());
  std::string listing;
  for (const std::string& name : *names) listing += name + "\n";
  return listing;
}

std::int32_t ConsolePlatform::clockMilliseconds() {
  return static_cast<std::int32_t>(std::clock() / (CLOCKS_PER_SEC / 1000));
}

std::int64_t ConsolePlatform::chronoTicks() {
  using Ticks = std::chrono::duration<std::int64_t, std::ratio<1, 10'000'000>>;
  return std::chrono::duration_cast<Ticks>(std::chrono::system_clock::now().time_since_epoch()).count();
}

int ConsolePlatform::randomNumber() {
  return std::uniform_int_distribution<int>(0, std::numeric_limits<int>::max())(random_);
}

}  // namespace zelvaro
