// Platform on a POSIX system: the descriptors 0 and 1, the file system, programs, clocks.
#pragma once

#include <sys/types.h>

#include <random>
#include <vector>

#include "platform/Console.h"
#include "platform/SystemPlatform.h"

namespace zelvaro {

class PosixPlatform : public Platform {
 public:
  /// Ignores the signals of a closed output (SIGPIPE) and of a file size limit (SIGXFSZ) from here on: the
  /// write fails instead, and the program continues.
  explicit PosixPlatform(int inputFd = 0, int outputFd = 1);
  ~PosixPlatform() override;
  PosixPlatform(const PosixPlatform&) = delete;
  PosixPlatform& operator=(const PosixPlatform&) = delete;

  void print(std::string_view utf8) override { output_.print(utf8); }
  void flush() override { output_.flush(); }
  std::optional<std::string> readLine() override;
  bool inputHasEnded() override { return input_.hasEnded(); }
  bool consoleIsGone() override;
  std::optional<ConsoleSize> consoleSize() override;

  bool canRead(const std::string& path, FileFailure* failure) override;
  std::optional<std::string> readFile(const std::string& path, FileFailure* failure,
                                      std::size_t most) override;
  std::optional<FileBytes> loadFile(const std::string& path, FileFailure* failure) override;
  std::unique_ptr<OutputFile> createFile(const std::string& path, FileFailure* failure,
                                         FileWriting writing) override;
  bool exists(const std::string& path) override;

  std::optional<std::string> folderListing(const std::string& path, FileFailure* failure) override;
  bool deleteFile(const std::string& path, FileFailure* failure) override;
  EditResult editFile(const EditorCommand& editor, const std::string& path) override;
  bool pageFile(const std::string& path, const std::string& keys) override;
  bool openOnDesktop(const std::string& path) override;
  void bringConsoleToFront() override {}

  std::optional<std::string> workingDirectory(FileFailure* failure) override;
  bool userInterfaceIsJapanese() override;
  std::int32_t clockMilliseconds() override;
  std::int64_t chronoTicks() override;
  std::int64_t performanceCounter() override;
  std::int64_t performanceFrequency() override { return 1'000'000'000; }
  std::tm localTime() override;
  int randomNumber() override;

 private:
  ConsoleInput input_;
  ConsoleOutput output_;
  std::mt19937 random_;
  std::vector<pid_t> started_;  ///< programs that were started and not waited for
  std::int64_t lastLook_ = 0;   ///< when the console was last polled, in nanoseconds of the monotonic clock
};

}  // namespace zelvaro
