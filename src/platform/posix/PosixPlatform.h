// Platform on a POSIX system: what it has besides the common part.
#pragma once

#include <sys/types.h>

#include <vector>

#include "platform/ConsolePlatform.h"
#include "platform/SystemPlatform.h"

namespace zelvaro {

class PosixPlatform : public ConsolePlatform {
 public:
  /// Ignores the signals of a closed output (SIGPIPE) and of a file size limit (SIGXFSZ) from here on: the
  /// write fails instead, and the program continues.
  explicit PosixPlatform(int inputFd = 0, int outputFd = 1);

  bool consoleIsGone() override;

  std::optional<FileBytes> loadFile(const std::string& path, FileFailure* failure) override;
  EditResult editFile(const EditorCommand& editor, const std::string& path) override;
  bool pageFile(const std::string& path, const std::string& keys) override;
  bool openOnDesktop(const std::string& path) override;
  void bringConsoleToFront() override {}

  std::optional<std::string> workingDirectory(FileFailure* failure) override;
  bool userInterfaceIsJapanese() override;
  std::int64_t performanceCounter() override;
  std::int64_t performanceFrequency() override { return 1'000'000'000; }
  std::tm localTime() override;

 private:
  std::vector<pid_t> started_;  ///< programs that were started and not waited for
  std::int64_t lastLook_ = 0;   ///< when the console was last polled, in nanoseconds of the monotonic clock
};

}  // namespace zelvaro
