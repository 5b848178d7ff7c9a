// Files: which are read, how they are written, whom they belong to; the environment and the clocks.
#include <gtest/gtest.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cstring>
#include <fstream>
#include <functional>
#include <thread>

#include "TemporaryFolder.h"
#include "platform/posix/PosixPlatform.h"

namespace zelvaro {
namespace {

using namespace std::string_literals;
using Kind = FileFailure::Kind;
namespace fs = std::filesystem;

class FilesTest : public ::testing::Test {
 protected:
  /// Writes a file; the failure, without a reason where there is none.
  FileFailure written(const std::string& name, const std::string& bytes, FileWriting how = {}) {
    FileFailure cause;
    const auto file = platform.createFile(folder.path(name), &cause, how);
    if (!file) return cause;
    for (std::size_t i = 0; i < bytes.size(); i += 1000) file->write(std::string_view(bytes).substr(i, 1000));
    const bool done = file->commit();
    EXPECT_EQ(done, file->failure().reason.empty());
    return file->failure();
  }
  struct stat statusOf(const std::string& name) {
    struct stat status {};
    ::stat(folder.path(name).c_str(), &status);
    return status;
  }

  test::TemporaryFolder folder;
  PosixPlatform posix{-1, -1};
  Platform& platform = posix;
  FileFailure failure;
};

TEST_F(FilesTest, ReadsAFileWholeWhateverItHoldsAndClaims) {
  for (const std::string& bytes :
       {""s, "\0\r\n\xFF"s, std::string(300'000, 'x'), std::string(5'000'000, 'y')}) {
    const std::string path = folder.write("f", bytes);
    EXPECT_TRUE(platform.readFile(path, nullptr, bytes.size()) == bytes);
    EXPECT_TRUE(platform.loadFile(path).value_or(FileBytes{"none", {}}).bytes == bytes);
    EXPECT_EQ(bytes.empty() || platform.readFile(path, &failure, bytes.size() - 1), bytes.empty());
  }
  EXPECT_EQ(failure.kind, Kind::TooLarge);
  constexpr const char* kClaimsNothing = "/proc/self/status";
  EXPECT_TRUE(platform.loadFile(kClaimsNothing)->bytes.starts_with("Name:"));
  EXPECT_FALSE(platform.readFile(kClaimsNothing, nullptr, 10));
  fs::resize_file(folder.write("huge", ""), std::uintmax_t{1} << 31);
  failure = {};
  EXPECT_FALSE(platform.loadFile(folder.path("huge"), &failure));
  EXPECT_EQ(failure.kind, Kind::TooLarge) << "refused before any of it is read";
}

TEST_F(FilesTest, OnlyRegularFilesAreReadAndReplaced) {
  ASSERT_EQ(::mkfifo(folder.path("fifo").c_str(), 0600), 0);
  ASSERT_EQ(::mknod(folder.path("socket").c_str(), S_IFSOCK | 0600, 0), 0);
  fs::create_directory(folder.path("folder"));
  fs::create_symlink("circle", folder.path("circle"));
  fs::create_symlink("/dev/null", folder.path("null"));
  folder.write("f", "x");
  const std::tuple<Kind, Kind, std::vector<std::string>> cases[] = {
      {Kind::NotRegular, Kind::NotRegular, {"fifo", "socket"}},
      {Kind::NotRegular, Kind::LeadsOutside, {"null"}},
      {Kind::Folder, Kind::Folder, {"folder"}},
      {Kind::Missing, Kind::Missing, {"none/f", ""}},
      {Kind::System, Kind::System, {"circle", "f/x", "f\0"s, std::string(300, 'n')}}};
  for (const auto& [reading, writing, names] : cases) {
    for (const std::string& name : names) {
      const std::string path = name.empty() ? "" : folder.path(name);
      FileFailure read, loaded, looked, wrote;
      EXPECT_FALSE(platform.readFile(path, &read) || platform.loadFile(path, &loaded) ||
                   platform.canRead(path, &looked) || platform.createFile(path, &wrote));
      for (const FileFailure& f : {read, loaded, looked}) EXPECT_EQ(f.kind, reading) << name << f.reason;
      EXPECT_TRUE(wrote.kind == writing && !wrote.reason.empty()) << name << wrote.reason;
    }
  }
  auto file = platform.createFile(folder.path("g"));
  fs::create_directory(folder.path("g"));
  EXPECT_FALSE(file->commit()) << "a folder has taken the place meanwhile";
  EXPECT_EQ(folder.entries(), 7u) << "no temporary file";
}

TEST_F(FilesTest, AFileIsThereOnlyOnceItIsComplete) {
  folder.write("f", "old");
  folder.write(".f.tmp", "left over by a program that was killed");
  platform.createFile(folder.path("f"))->write("dropped");
  EXPECT_EQ(folder.entries(), 1u) << "neither the leftover nor what was not committed";
  const std::string bytes(200'001, 'n');
  auto first = platform.createFile(folder.path("f"), nullptr, {.synced = true});
  first->write(bytes);
  EXPECT_EQ(written("f", "second").reason, "");
  EXPECT_EQ(folder.read("f"), "second");
  EXPECT_TRUE(first->commit()) << "two at once do not meet";
  EXPECT_FALSE(first->commit()) << "there is nothing left to put in place";
  EXPECT_TRUE(folder.read("f") == bytes);

  EXPECT_EQ(written("f", "x", {.replaces = false}).kind, Kind::Exists);
  EXPECT_EQ(written("h", "new", {.replaces = false}).reason, "");
  auto fresh = platform.createFile(folder.path("g"), nullptr, {.replaces = false});
  folder.write("g", "came first");
  EXPECT_FALSE(fresh->commit());
  EXPECT_EQ(folder.read("g") + folder.read("h"), "came firstnew");
  fs::create_symlink("i", folder.path(".f.tmp"));
  EXPECT_EQ(written("f", "by another name").reason, "") << "what is no leftover is left alone";

  rlimit old{};
  ::getrlimit(RLIMIT_FSIZE, &old);
  const rlimit limit{65'536, old.rlim_max};
  ::setrlimit(RLIMIT_FSIZE, &limit);
  EXPECT_EQ(written("f", bytes).reason, "File too large") << "no signal ends the program";
  ::setrlimit(RLIMIT_FSIZE, &old);
  EXPECT_EQ(folder.read("f"), "by another name");
  EXPECT_EQ(folder.entries(), 4u);
}

class Links : public FilesTest {
 protected:
  void play();
};

void Links::play() {
  for (const char* name : {"work", "work/d", "outside"}) fs::create_directory(folder.path(name));
  folder.write("outside/kept", "kept");
  fs::create_symlink("../outside", folder.path("work/sub"));
  struct Link {
    std::string name, to;
    bool followed;
  };
  for (const Link& c :
       {Link{"plain", "d/new", true}, Link{"chain", "plain", true}, Link{"up", "../outside/kept", false},
        Link{"back", "d/../d/new", true}, Link{"whole", folder.path("work/d/new"), true},
        Link{"root", folder.path("outside/kept"), false}, Link{"dangling", "../outside/new", false},
        Link{"through", "sub/kept", false}, Link{"twice", "up", false}}) {
    fs::create_symlink(c.to, folder.path("work/" + c.name));
    EXPECT_EQ(written("work/" + c.name, c.name).kind, c.followed ? Kind::System : Kind::LeadsOutside)
        << c.name;
    EXPECT_TRUE(!c.followed || folder.read("work/d/new") == c.name);
    EXPECT_TRUE(fs::is_symlink(folder.path("work/" + c.name)));
  }
  EXPECT_EQ(folder.read("outside/kept"), "kept");
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.path("outside")), {}), 1);
}

TEST_F(Links, AreFollowedOnlyWithinTheFolder) {
  play();
}

/// On a thread on which the kernel lacks a call, as older ones do.
void withoutCall(unsigned number, const std::function<void()>& work) {
  std::thread([&] {
    sock_filter refusal[] = {BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
                             BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, number, 0, 1),
                             BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | ENOSYS),
                             BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW)};
    const sock_fprog program{std::size(refusal), refusal};
    ASSERT_EQ(::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0), 0);
    ASSERT_EQ(::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program), 0) << std::strerror(errno);
    ASSERT_TRUE(::syscall(number, -1, nullptr, -1, nullptr, 0) == -1 && errno == ENOSYS);
    work();
  }).join();
}

TEST_F(Links, AreFollowedOnlyWithinTheFolderWithoutOpenat2) {
  withoutCall(SYS_openat2, [this] { play(); });
}

TEST_F(FilesTest, AFileInUseIsKeptWithoutRenameat2) {
  withoutCall(SYS_renameat2, [this] {
    EXPECT_EQ(written("new", "first", {.replaces = false}).reason, "");
    EXPECT_EQ(written("new", "second", {.replaces = false}).kind, Kind::Exists);
    FileFailure cause;
    const auto late = platform.createFile(folder.path("other"), &cause, {.replaces = false});
    folder.write("other", "meanwhile");
    EXPECT_FALSE(late->commit());
    EXPECT_EQ(late->failure().kind, Kind::Exists);
  });
  EXPECT_EQ(folder.read("new") + folder.read("other"), "firstmeanwhile");
  EXPECT_EQ(folder.entries(), 2u);
}

TEST_F(FilesTest, RightsAreRespectedAndKept) {
  constexpr uid_t kNobody = 65534;
  const bool root = ::geteuid() == 0;
  const std::string path = folder.write("f", "old");
  ASSERT_TRUE(!root || ::chown(path.c_str(), kNobody, kNobody) == 0);
  for (const mode_t mode : {0600u, 0640u, 0664u, 0604u}) {
    ::chmod(path.c_str(), mode);
    auto file = platform.createFile(path);
    EXPECT_EQ(statusOf(".f.tmp").st_mode & 0777, 0600u) << "open to nobody else meanwhile";
    EXPECT_TRUE(file->commit());
    EXPECT_EQ(statusOf("f").st_mode & 0777, mode);
    EXPECT_EQ(statusOf("f").st_uid, root ? kNobody : ::geteuid());
  }
  // everybody else meets rights, and may keep neither owner nor group
  folder.write("roots", "old");
  ::chmod(folder.path("roots").c_str(), 0662);
  ASSERT_TRUE(!root || (::chown(folder.path("roots").c_str(), 0, kNobody) == 0 &&
                        ::chown(folder.path().c_str(), kNobody, 0) == 0 && ::seteuid(kNobody) == 0));
  EXPECT_EQ(written("roots", "new").reason, "");
  EXPECT_EQ(statusOf("roots").st_mode & 0777, root ? 0622u : 0662u) << "the new group gets what others have";
  ::chmod(path.c_str(), 0);
  EXPECT_FALSE(platform.readFile(path, &failure));
  EXPECT_EQ(failure.reason, "Permission denied");
  ::chmod(path.c_str(), 0400);
  EXPECT_EQ(written("f", "new").reason, "Permission denied");
  ::chmod(folder.path().c_str(), 0500);
  EXPECT_EQ(written("g", "new").reason, "Permission denied");
  ::chmod(folder.path().c_str(), 0700);
  ASSERT_TRUE(!root || ::seteuid(0) == 0);
  EXPECT_EQ(folder.entries(), 2u);
}

TEST_F(FilesTest, TheMemoryOfALargeSourceGoesBackToTheSystem) {
  const auto pages = [] {
    long count = 0;
    std::ifstream("/proc/self/statm") >> count;
    return count;
  };
  const std::string large = folder.write("large", std::string(std::size_t{8} << 20, ';'));
  ASSERT_TRUE(platform.loadFile(large));
  const long before = pages();
  for (int i = 0; i < 8; ++i) ASSERT_TRUE(platform.loadFile(large));
  EXPECT_LT((pages() - before) * ::sysconf(_SC_PAGESIZE), 16 << 20);
}

TEST(Environment, LanguageByTheFirstVariableWithAValue) {
  const std::tuple<const char*, const char*, const char*, bool> cases[] = {
      {"", "", "", false},
      {"", "", "ja_JP.UTF-8", true},
      {"ja_JP.eucJP", "C", "C", true},
      {"", "en_US.UTF-8", "ja_JP", false}};
  for (const auto& [all, messages, lang, japanese] : cases) {
    ::setenv("LC_ALL", all, 1);
    ::setenv("LC_MESSAGES", messages, 1);
    ::setenv("LANG", lang, 1);
    EXPECT_EQ(PosixPlatform(-1, -1).userInterfaceIsJapanese(), japanese);
  }
}

TEST(Environment, ClocksRunInTheirUnitsAndNumbersDiffer) {
  PosixPlatform platform(-1, -1);
  const std::int64_t qpc = platform.performanceCounter(), chrono = platform.chronoTicks();
  const std::int32_t clock = platform.clockMilliseconds();
  ::usleep(20'000);
  EXPECT_GE(platform.performanceCounter() - qpc, 20 * (platform.performanceFrequency() / 1000));
  EXPECT_GE(platform.chronoTicks() - chrono, 200'000);
  EXPECT_LE(platform.clockMilliseconds() - clock, 20) << "sleep takes no processor time";
  std::tm local = platform.localTime();
  EXPECT_LE(std::abs(std::mktime(&local) - std::time(nullptr)), 2);
  EXPECT_LE(std::abs(platform.chronoTicks() / 10'000'000 - std::time(nullptr)), 2);
  const int number = platform.randomNumber();
  EXPECT_TRUE(number >= 0 && (platform.randomNumber() != number || platform.randomNumber() != number));
}

TEST_F(FilesTest, TheWorkingFolderMayHaveALongNameOrBeGone) {
  const fs::path before = fs::current_path();
  const fs::path deep = folder.path(std::string(200, 'a') + "/" + std::string(200, 'b'));
  fs::create_directories(deep);
  fs::current_path(deep);
  EXPECT_EQ(platform.workingDirectory(), deep.string());
  fs::remove(deep);
  EXPECT_FALSE(platform.workingDirectory(&failure));
  EXPECT_EQ(failure.kind, Kind::Missing);
  fs::current_path(before);
}

}  // namespace
}  // namespace zelvaro
