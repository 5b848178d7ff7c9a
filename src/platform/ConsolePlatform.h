// What the platforms of a console have in common: the console itself, files, clocks, random numbers.  The files are the
// part that each system implements in its own folder, as it does for the parts of Console.h.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Console.h"
#include "platform/TemporaryOutput.h"

namespace zelvaro {

class ConsolePlatform : public Platform {
 public:
  ConsolePlatform(const ConsolePlatform&) = delete;
  ConsolePlatform& operator=(const ConsolePlatform&) = delete;

  void print(std::string_view utf8) override { output_.print(utf8); }
  void flush() override { output_.flush(); }
  std::optional<std::string> readLine() override;
  bool inputHasEnded() override { return input_.hasEnded(); }
  std::optional<ConsoleSize> consoleSize() override;

  bool canRead(const std::string& path, FileFailure* failure) override;
  std::optional<std::string> readFile(const std::string& path, FileFailure* failure,
                                      std::size_t most) override;
  std::unique_ptr<OutputFile> createFile(const std::string& path, FileFailure* failure,
                                         FileWriting writing) override;
  bool exists(const std::string& path) override;
  std::optional<std::string> folderListing(const std::string& path, FileFailure* failure) override;
  bool deleteFile(const std::string& path, FileFailure* failure) override;

  std::int32_t clockMilliseconds() override;
  std::int64_t chronoTicks() override;
  int randomNumber() override;

 protected:
  ConsolePlatform(int inputFd, int outputFd);

  ConsoleInput input_;
  ConsoleOutput output_;

 private:
  static std::unique_ptr<TemporaryOutput> temporaryOutput(FileWriting writing);
  /// The names in a folder, in any order, folders with a "/" at the end; for a file, its own name.
  static std::optional<std::vector<std::string>> entriesOf(const std::string& path, FileFailure* failure);

  std::mt19937 random_;
};

}  // namespace zelvaro
