// A Platform for tests: files in memory, typed lines from a list, the console kept as text.
#pragma once

#include <deque>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/Platform.h"

namespace zelvaro::test {

class ScriptedPlatform : public Platform {
 public:
  std::string console;            ///< all that has been printed, UTF-8
  std::deque<std::string> typed;  ///< lines to come; after the last one the input has ended
  std::map<std::string, std::string> files;
  std::set<std::string> folders;
  std::set<std::string> unwritable;  ///< names that createFile and commit refuse
  std::vector<std::string> actions;  ///< what was asked of the outside world, a line each
  bool japanese = false;
  int random = 0;                 ///< the next random number
  std::int64_t ticks = 0;         ///< what every clock shows, in microseconds
  std::int64_t ticksPerCall = 0;  ///< by how much each look at a clock moves it on
  std::tm now{};

  void print(std::string_view utf8) override { console += utf8; }
  void flush() override {}
  std::optional<std::string> readLine() override;
  bool inputHasEnded() override { return typed.empty(); }
  bool canRead(const std::string& path, FileFailure* failure) override {
    return readFile(path, failure, kAnySize).has_value();
  }
  std::optional<std::string> readFile(const std::string& path, FileFailure* failure,
                                      std::size_t most) override;
  std::unique_ptr<OutputFile> createFile(const std::string& path, FileFailure* failure,
                                         FileWriting writing) override;
  bool exists(const std::string& path) override { return files.count(path) + folders.count(path) != 0; }
  std::optional<std::string> folderListing(const std::string& path, FileFailure*) override {
    return actions.emplace_back("list " + path), "";
  }
  bool deleteFile(const std::string& path, FileFailure* failure) override;
  EditResult editFile(const EditorCommand& editor, const std::string& path) override {
    return actions.emplace_back("edit [" + editor.commandLine + "] " + path), EditResult{};
  }
  bool openOnDesktop(const std::string& path) override { return actions.emplace_back("open " + path), true; }
  void bringConsoleToFront() override {}
  std::optional<std::string> workingDirectory(FileFailure*) override { return "/work"; }
  bool userInterfaceIsJapanese() override { return japanese; }
  std::int32_t clockMilliseconds() override { return static_cast<std::int32_t>(tick() / 1000); }
  std::int64_t chronoTicks() override { return tick() * 10; }
  std::int64_t performanceCounter() override { return tick(); }
  std::int64_t performanceFrequency() override { return 1'000'000; }
  std::tm localTime() override { return now; }
  int randomNumber() override { return random; }

 private:
  std::int64_t tick() { return ticks += ticksPerCall; }
};

}  // namespace zelvaro::test
