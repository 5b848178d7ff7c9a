// Files: read whole, written beside their target; the environment and the clocks.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include "TemporaryFolder.h"
#include "platform/Files.h"
#include "platform/PosixPlatform.h"

namespace zelvaro {
namespace {

using namespace std::string_literals;
namespace fs = std::filesystem;

class FilesTest : public ::testing::Test {
 protected:
  bool writeFile(const std::string& name, const std::string& bytes, std::string* reason = nullptr) {
    FileFailure failure;
    const auto file = platform.createFile(folder.path(name), &failure);
    bool done = false;
    if (file) {
      for (std::size_t i = 0; i < bytes.size(); i += 1000)
        file->write(std::string_view(bytes).substr(i, 1000));
      done = file->commit();
      failure.reason = file->reason();
    }
    if (reason != nullptr) *reason = failure.reason;
    return done;
  }

  test::TemporaryFolder folder;
  PosixPlatform platform{-1, -1};
};

TEST_F(FilesTest, ReadsAFileWholeWhateverItHolds) {
  for (const std::string& bytes :
       {""s, "\0\r\n\xFF"s, std::string(300'000, 'x'), std::string(5'000'000, 'y')}) {
    EXPECT_TRUE(platform.readFile(folder.write("f", bytes), nullptr) == bytes);
    EXPECT_TRUE(platform.canRead(folder.path("f")));
    const auto loaded = platform.loadFile(folder.path("f"), nullptr);
    ASSERT_TRUE(loaded);
    EXPECT_TRUE(loaded->bytes == bytes);
  }
  // files whose size is told as 0
  EXPECT_THAT(platform.readFile("/proc/self/status", nullptr).value_or(""), ::testing::HasSubstr("Name:"));
}

TEST_F(FilesTest, OnlyRegularFilesAreRead) {
  ASSERT_EQ(::mkfifo(folder.path("fifo").c_str(), 0600), 0);
  fs::create_directory(folder.path("folder"));
  fs::create_symlink("nowhere", folder.path("dangling"));
  fs::create_symlink("circle", folder.path("circle"));
  folder.write("f", "x");
  const std::pair<std::string, std::string> cases[] = {
      {folder.path("fifo"), "Not a regular file"},
      {"/dev/null", "Not a regular file"},
      {folder.path("folder"), "Is a directory"},
      {folder.path("none"), "No such file or directory"},
      {folder.path("dangling"), "No such file or directory"},
      {folder.path("circle"), "Too many levels of symbolic links"},
      {folder.path("f") + "/x", "Not a directory"},
      {folder.path("f") + "\0"s, "Invalid argument"},
      {folder.path(std::string(300, 'n')), "File name too long"},
      {"", "No such file or directory"},
  };
  for (const auto& [path, reason] : cases) {
    FileFailure failure;
    EXPECT_EQ(platform.readFile(path, &failure), std::nullopt) << path;
    EXPECT_EQ(failure.reason, reason) << path;
    EXPECT_FALSE(platform.canRead(path)) << path;
    failure.reason.clear();
    EXPECT_FALSE(platform.loadFile(path, &failure)) << path;
    EXPECT_EQ(failure.reason, reason) << path;
  }
}

TEST_F(FilesTest, AFileStandsOnlyOnceItIsComplete) {
  folder.write("f", "old");
  const std::string bytes(200'001, 'n');
  auto file = platform.createFile(folder.path("f"), nullptr);
  file->write(bytes);
  EXPECT_EQ(folder.read("f"), "old");
  EXPECT_TRUE(file->commit());
  EXPECT_TRUE(folder.read("f") == bytes);
  EXPECT_EQ(folder.entries(), 1u);
  EXPECT_FALSE(file->commit()) << "there is nothing left to put in place";
  EXPECT_TRUE(folder.read("f") == bytes);
}

TEST_F(FilesTest, WithoutACommitNothingRemains) {
  folder.write("f", "old");
  platform.createFile(folder.path("f"), nullptr)->write("new");
  EXPECT_EQ(folder.read("f"), "old");
  EXPECT_EQ(folder.entries(), 1u);
}

TEST_F(FilesTest, ATargetThatIsNoFileIsLeftAlone) {
  fs::create_directory(folder.path("d"));
  ASSERT_EQ(::mkfifo(folder.path("fifo").c_str(), 0600), 0);
  std::string reason;
  EXPECT_FALSE(writeFile("d", "x", &reason));
  EXPECT_EQ(reason, "Is a directory");
  EXPECT_FALSE(writeFile("fifo", "x", &reason));
  EXPECT_EQ(reason, "Not a regular file");
  EXPECT_FALSE(writeFile("none/f", "x", &reason));
  EXPECT_EQ(reason, "No such file or directory");
  EXPECT_FALSE(writeFile("f\0"s, "x", &reason));
  EXPECT_EQ(reason, "Invalid argument");
  EXPECT_EQ(folder.entries(), 2u);
}

TEST_F(FilesTest, AFolderThatTakesThePlaceMeanwhileIsLeftAlone) {
  auto file = platform.createFile(folder.path("f"), nullptr);
  file->write("text");
  fs::create_directory(folder.path("f"));
  EXPECT_FALSE(file->commit());
  EXPECT_EQ(file->reason(), "Is a directory");
  EXPECT_EQ(folder.entries(), 1u);
}

TEST_F(FilesTest, AFullDiskLeavesTheOldFile) {
  folder.write("f", "old");
  rlimit old{};
  ::getrlimit(RLIMIT_FSIZE, &old);
  for (const rlim_t room : {0u, 1u, 65'535u, 65'536u, 65'537u, 199'999u}) {
    rlimit limit = old;
    limit.rlim_cur = room;
    ::setrlimit(RLIMIT_FSIZE, &limit);
    std::string reason;
    const bool done = writeFile("f", std::string(200'000, 'x'), &reason);
    ::setrlimit(RLIMIT_FSIZE, &old);
    EXPECT_FALSE(done) << room;
    EXPECT_EQ(reason, "File too large");
    EXPECT_EQ(folder.read("f"), "old");
    EXPECT_EQ(folder.entries(), 1u);
  }
}

TEST_F(FilesTest, TooManyOpenFilesAreTold) {
  EXPECT_TRUE(writeFile("f", "old"));
  rlimit old{};
  ::getrlimit(RLIMIT_NOFILE, &old);
  rlimit limit = old;
  limit.rlim_cur = 3;
  ::setrlimit(RLIMIT_NOFILE, &limit);
  std::string reason;
  const bool done = writeFile("f", "new", &reason);
  ::setrlimit(RLIMIT_NOFILE, &old);
  EXPECT_FALSE(done);
  EXPECT_EQ(reason, "Too many open files");
  EXPECT_EQ(folder.read("f"), "old");
}

TEST_F(FilesTest, LinksAreFollowedAndRightsKept) {
  fs::create_directory(folder.path("d"));
  folder.write("d/real", "old");
  ASSERT_EQ(::chmod(folder.path("d/real").c_str(), 0640), 0);
  fs::create_symlink("real", folder.path("d/second"));
  fs::create_symlink("d/second", folder.path("link"));
  EXPECT_TRUE(writeFile("link", "new"));
  EXPECT_TRUE(fs::is_symlink(folder.path("link")));
  EXPECT_EQ(folder.read("d/real"), "new");
  struct stat status {};
  ::stat(folder.path("d/real").c_str(), &status);
  EXPECT_EQ(status.st_mode & 0777, 0640u);

  fs::create_symlink("fresh", folder.path("dangling"));
  EXPECT_TRUE(writeFile("dangling", "text"));
  EXPECT_EQ(folder.read("fresh"), "text");
  fs::create_symlink("circle", folder.path("circle"));
  EXPECT_FALSE(writeFile("circle", "text"));
}

/// Lets root's tests meet the rights that everybody else has.
class AsNobody {
 public:
  explicit AsNobody(const std::string& folder) : root_(::geteuid() == 0) {
    constexpr uid_t kNobody = 65534;
    if (root_) changed_ = ::chown(folder.c_str(), kNobody, kNobody) == 0 && ::seteuid(kNobody) == 0;
  }
  ~AsNobody() {
    if (changed_) changed_ = ::seteuid(0) != 0;
  }
  bool works() const { return !root_ || changed_; }

 private:
  bool root_;
  bool changed_ = false;
};

TEST_F(FilesTest, RightsAreRespected) {
  const AsNobody nobody(folder.path());
  if (!nobody.works()) GTEST_SKIP() << "this machine has no other user";
  folder.write("f", "old");
  ASSERT_EQ(::chmod(folder.path("f").c_str(), 0400), 0);
  std::string reason;
  EXPECT_FALSE(writeFile("f", "new", &reason));
  EXPECT_EQ(reason, "Permission denied");
  ASSERT_EQ(::chmod(folder.path().c_str(), 0500), 0);
  EXPECT_FALSE(writeFile("g", "new", &reason));
  EXPECT_EQ(reason, "Permission denied");
  EXPECT_EQ(folder.entries(), 1u);
  ::chmod(folder.path().c_str(), 0700);
}

TEST_F(FilesTest, ExistsAndRename) {
  EXPECT_TRUE(platform.exists(folder.path()));
  EXPECT_FALSE(platform.exists(folder.path("f")));
  folder.write("f", "text");
  EXPECT_TRUE(platform.renameFile(folder.path("f"), folder.path("g")));
  EXPECT_EQ(folder.read("g"), "text");
  EXPECT_FALSE(platform.renameFile(folder.path("f"), folder.path("g")));
}

TEST(Environment, LanguageByTheFirstVariableWithAValue) {
  struct Case {
    const char *all, *messages, *lang;
    bool japanese;
  };
  const Case cases[] = {
      {nullptr, nullptr, nullptr, false},
      {nullptr, nullptr, "ja_JP.UTF-8", true},
      {"", "", "ja", true},
      {"C", nullptr, "ja_JP.UTF-8", false},
      {"ja_JP.eucJP", "C", "C", true},
      {"", "en_US.UTF-8", "ja_JP", false},
      {nullptr, "ja_JP", "C", true},
  };
  PosixPlatform platform(-1, -1);
  const auto set = [](const char* name, const char* value) {
    value != nullptr ? ::setenv(name, value, 1) : ::unsetenv(name);
  };
  for (const Case& c : cases) {
    set("LC_ALL", c.all);
    set("LC_MESSAGES", c.messages);
    set("LANG", c.lang);
    EXPECT_EQ(platform.userInterfaceIsJapanese(), c.japanese);
  }
}

TEST(Environment, ClocksRunInTheirUnits) {
  PosixPlatform platform(-1, -1);
  const std::int64_t qpc = platform.performanceCounter();
  const std::int64_t chrono = platform.chronoTicks();
  const std::int32_t clock = platform.clockMilliseconds();
  ::usleep(20'000);
  EXPECT_GE(platform.performanceCounter() - qpc, 20'000'000);
  EXPECT_GE(platform.chronoTicks() - chrono, 200'000);
  EXPECT_LT(platform.chronoTicks() - chrono, 100'000'000);
  EXPECT_LE(platform.clockMilliseconds() - clock, 20) << "sleep takes no processor time";
  EXPECT_NEAR(static_cast<double>(platform.chronoTicks()) / 1e7, static_cast<double>(std::time(nullptr)), 2);
}

TEST(Environment, WorkingDirectoryAndRandomNumbers) {
  PosixPlatform platform(-1, -1);
  EXPECT_EQ(platform.workingDirectory(nullptr), fs::current_path().string());
  bool differs = false;
  const int first = platform.randomNumber();
  for (int i = 0; i < 20; ++i) {
    const int next = platform.randomNumber();
    EXPECT_GE(next, 0);
    differs = differs || next != first;
  }
  EXPECT_TRUE(differs);
}

}  // namespace
}  // namespace zelvaro
