// Platform on Windows: the standard handles, the file system, programs, clocks.
#pragma once

#include <random>

#include "platform/Console.h"
#include "platform/SystemPlatform.h"

namespace zelvaro {

class WindowsPlatform : public Platform {
 public:
  explicit WindowsPlatform(int inputFd = 0, int outputFd = 1);

  void print(std::string_view utf8) override { output_.print(utf8); }
  void flush() override { output_.flush(); }
  std::optional<std::string> readLine() override;
  bool inputHasEnded() override { return input_.hasEnded(); }
  bool consoleIsGone() override { return output_.readerIsGone(); }
  std::optional<ConsoleSize> consoleSize() override;

  bool canRead(const std::string& path, FileFailure* failure) override;
  std::optional<std::string> readFile(const std::string& path, FileFailure* failure,
                                      std::size_t most) override;
  std::unique_ptr<OutputFile> createFile(const std::string& path, FileFailure* failure,
                                         FileWriting writing) override;
  bool exists(const std::string& path) override;

  std::optional<std::string> folderListing(const std::string& path, FileFailure* failure) override;
  bool deleteFile(const std::string& path, FileFailure* failure) override;
  EditResult editFile(const EditorCommand& editor, const std::string& path) override;
  bool openOnDesktop(const std::string& path) override;
  void bringConsoleToFront() override;

  std::optional<std::string> workingDirectory(FileFailure* failure) override;
  bool userInterfaceIsJapanese() override;
  std::int32_t clockMilliseconds() override;
  std::int64_t chronoTicks() override;
  std::int64_t performanceCounter() override;
  std::int64_t performanceFrequency() override;
  std::tm localTime() override;
  int randomNumber() override;

 private:
  ConsoleInput input_;
  ConsoleOutput output_;
  std::mt19937 random_;
};

}  // namespace zelvaro
