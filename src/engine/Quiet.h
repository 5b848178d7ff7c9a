// A Platform without an outside world and a sink that drops what it takes, for the stages that ask for one.
#pragma once

#include "diag/Diagnostic.h"
#include "platform/Platform.h"

namespace zelvaro::engine {

/// For messages that another call has issued or will issue.
struct QuietSink : DiagSink {
  void take(const Diagnostic&) override {}
};

/// Prints nothing, has no file and no input, and its clocks do not move.
class QuietPlatform : public Platform {
 public:
  void print(std::string_view) override {}
  void flush() override {}
  std::optional<std::string> readLine() override { return std::nullopt; }
  bool inputHasEnded() override { return true; }
  bool canRead(const std::string&, FileFailure* failure) override { return missing(failure); }
  std::optional<std::string> readFile(const std::string&, FileFailure* failure, std::size_t) override {
    missing(failure);
    return std::nullopt;
  }
  std::unique_ptr<OutputFile> createFile(const std::string&, FileFailure* failure, FileWriting) override {
    missing(failure);
    return nullptr;
  }
  bool exists(const std::string&) override { return false; }
  std::optional<std::string> folderListing(const std::string&, FileFailure* failure) override {
    missing(failure);
    return std::nullopt;
  }
  bool deleteFile(const std::string&, FileFailure* failure) override { return missing(failure); }
  EditResult editFile(const EditorCommand&, const std::string&) override { return {}; }
  bool openOnDesktop(const std::string&) override { return false; }
  void bringConsoleToFront() override {}
  std::optional<std::string> workingDirectory(FileFailure* failure) override {
    missing(failure);
    return std::nullopt;
  }
  bool userInterfaceIsJapanese() override { return false; }
  std::int32_t clockMilliseconds() override { return 0; }
  std::int64_t chronoTicks() override { return 0; }
  std::int64_t performanceCounter() override { return 0; }
  std::int64_t performanceFrequency() override { return 1'000'000; }
  std::tm localTime() override { return {}; }
  int randomNumber() override { return 0; }

 private:
  static bool missing(FileFailure* failure) {
    if (failure != nullptr) *failure = {FileFailure::Kind::Missing, "No such file or directory"};
    return false;
  }
};

}  // namespace zelvaro::engine
