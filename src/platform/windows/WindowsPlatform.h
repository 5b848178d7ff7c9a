// Platform on Windows: what it has besides the common part.
#pragma once

#include "platform/ConsolePlatform.h"
#include "platform/SystemPlatform.h"

namespace zelvaro {

class WindowsPlatform : public ConsolePlatform {
 public:
  explicit WindowsPlatform(int inputFd = 0, int outputFd = 1) : ConsolePlatform(inputFd, outputFd) {}

  bool consoleIsGone() override { return output_.readerIsGone(); }
  EditResult editFile(const EditorCommand& editor, const std::string& path) override;
  bool openOnDesktop(const std::string& path) override;
  void bringConsoleToFront() override;

  std::optional<std::string> workingDirectory(FileFailure* failure) override;
  bool userInterfaceIsJapanese() override;
  std::int64_t performanceCounter() override;
  std::int64_t performanceFrequency() override;
  std::tm localTime() override;
};

}  // namespace zelvaro
