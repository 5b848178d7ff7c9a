// Surroundings that are seldom met: long search paths and folders, a slow reader, names that cannot be.
#include <gtest/gtest.h>

#include <thread>

#include "Descriptors.h"
#include "TemporaryFolder.h"
#include "platform/PosixPlatform.h"
#include "platform/Programs.h"

namespace zelvaro {
namespace {

using namespace std::string_literals;
namespace fs = std::filesystem;

/// Sets a variable, or unsets it, for the time of a test.
class Variable {
 public:
  Variable(const char* name, const char* value) : name_(name) {
    if (const char* old = std::getenv(name)) old_ = old;
    set(value);
  }
  ~Variable() { set(old_ ? old_->c_str() : nullptr); }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;

 private:
  void set(const char* value) { value != nullptr ? ::setenv(name_, value, 1) : ::unsetenv(name_); }

  const char* name_;
  std::optional<std::string> old_;
};

TEST(SearchPath, EveryFolderOfItIsLookedThrough) {
  const test::TemporaryFolder folder;
  fs::create_directories(folder.path("b/tool"));
  folder.writeProgram("editor", "");
  folder.write("noprogram", "");
  const Variable path("PATH", (folder.path("none") + ":" + folder.path("b") + ":" + folder.path()).c_str());
  EXPECT_TRUE(posix::isInstalled("editor"));
  EXPECT_FALSE(posix::isInstalled("noprogram")) << "a file that is none to start";
  EXPECT_FALSE(posix::isInstalled("tool")) << "a folder";
  const Variable none("PATH", nullptr);
  EXPECT_TRUE(posix::isInstalled("sh"));
}

TEST(OwnEditor, IsSensibleEditorWhereItHasAChoice) {
  struct Case {
    const char *visual, *editor;  ///< the variables
    std::vector<const char*> installed;
    std::optional<std::string> own;
  };
  const Case cases[] = {
      {nullptr, nullptr, {}, std::nullopt},
      {nullptr, nullptr, {"sensible-editor"}, std::nullopt},
      {"code -w", nullptr, {"sensible-editor"}, "sensible-editor"},
      {"", "ed", {"sensible-editor"}, "sensible-editor"},
      {"", "", {"sensible-editor"}, std::nullopt},
      {nullptr, nullptr, {"sensible-editor", "editor"}, "sensible-editor"},
      {nullptr, nullptr, {"sensible-editor", "vi"}, "sensible-editor"},
      {"code -w", nullptr, {"vi"}, "vi"},
      {nullptr, nullptr, {"vi", "nano"}, "nano"},
      {nullptr, nullptr, {"editor"}, std::nullopt},
  };
  for (const Case& c : cases) {
    const test::TemporaryFolder folder;
    for (const char* program : c.installed) folder.writeProgram(program, "");
    const Variable path("PATH", folder.path().c_str());
    const Variable visual("VISUAL", c.visual), editor("EDITOR", c.editor);
    EXPECT_EQ(posix::ownEditor(), c.own) << testing::PrintToString(c.installed);
  }
}

TEST(WorkingDirectory, MayHaveALongNameOrBeGone) {
  const test::TemporaryFolder folder;
  const fs::path before = fs::current_path();
  const fs::path deep = folder.path(std::string(200, 'a') + "/" + std::string(200, 'b'));
  fs::create_directories(deep);
  fs::current_path(deep);
  PosixPlatform platform(-1, -1);
  EXPECT_EQ(platform.workingDirectory(nullptr), deep.string());
  fs::remove(deep);
  FileFailure failure;
  EXPECT_EQ(platform.workingDirectory(&failure), std::nullopt);
  EXPECT_EQ(failure.reason, "No such file or directory");
  fs::current_path(before);
}

TEST(LocalTime, IsThatOfTheClock) {
  std::tm local = PosixPlatform(-1, -1).localTime();
  EXPECT_NEAR(static_cast<double>(std::mktime(&local)), static_cast<double>(std::time(nullptr)), 2);
}

TEST(Names, WithAZeroByteAreThoseOfNothing) {
  test::Pipe in, out;
  PosixPlatform platform(in.first, out.second);
  const std::string name = "a\0b"s;
  EXPECT_FALSE(platform.exists(name));
  EXPECT_FALSE(platform.readFile(name, nullptr).has_value());
  FileFailure failure;
  EXPECT_EQ(platform.createFile(name, &failure), nullptr);
  EXPECT_EQ(failure.reason, "Invalid argument");
  failure.reason.clear();
  EXPECT_EQ(platform.folderListing(name, &failure), std::nullopt);
  EXPECT_EQ(failure.reason, "Invalid argument");
}

TEST(SlowReader, GetsEverythingFromADescriptorThatDoesNotWait) {
  const test::Pipe pipe;
  ::fcntl(pipe.second, F_SETFL, O_NONBLOCK);
  const std::string bytes(300'000, 'x');
  std::thread writer([&] {
    ConsoleOutput out(pipe.second);
    out.print(bytes);
  });
  ::usleep(20'000);  // the pipe is full by now
  std::string got;
  char part[8192];
  while (got.size() < bytes.size()) {
    const ssize_t n = ::read(pipe.first, part, sizeof part);
    if (n <= 0) break;
    got.append(part, static_cast<std::size_t>(n));
  }
  writer.join();
  EXPECT_TRUE(got == bytes);
}

}  // namespace
}  // namespace zelvaro
