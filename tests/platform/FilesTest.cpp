// Files: which are read, how they are written, whom they belong to; the environment and the clocks.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include "TemporaryFolder.h"
#include "platform/PosixPlatform.h"

namespace zelvaro {
namespace {

using namespace std::string_literals;
using Kind = FileFailure::Kind;
namespace fs = std::filesystem;

class FilesTest : public ::testing::Test {
 protected:
  /// Writes a file; nothing, or the failure.
  std::optional<FileFailure> written(const std::string& name, const std::string& bytes,
                                     FileWriting how = {}) {
    FileFailure failure;
    const auto file = platform.createFile(folder.path(name), &failure, how);
    if (!file) return failure;
    for (std::size_t i = 0; i < bytes.size(); i += 1000) file->write(std::string_view(bytes).substr(i, 1000));
    if (file->commit()) return std::nullopt;
    return file->failure();
  }
  Kind kindOfFailure(const std::string& name) { return written(name, "text").value_or(FileFailure{}).kind; }
  struct stat statusOf(const std::string& name) {
    struct stat status {};
    ::stat(folder.path(name).c_str(), &status);
    return status;
  }

  test::TemporaryFolder folder;
  PosixPlatform posix{-1, -1};
  Platform& platform = posix;
};

TEST_F(FilesTest, ReadsAFileWholeWhateverItHoldsAndClaims) {
  for (const std::string& bytes :
       {""s, "\0\r\n\xFF"s, std::string(300'000, 'x'), std::string(5'000'000, 'y')}) {
    const std::string path = folder.write("f", bytes);
    EXPECT_TRUE(platform.canRead(path, nullptr));
    EXPECT_TRUE(platform.readFile(path, nullptr, bytes.size()) == bytes);
    const auto loaded = platform.loadFile(path, nullptr);
    EXPECT_TRUE(loaded && loaded->bytes == bytes);
    FileFailure failure;
    if (bytes.empty()) continue;
    EXPECT_FALSE(platform.readFile(path, &failure, bytes.size() - 1));
    EXPECT_EQ(failure.kind, Kind::TooLarge);
  }
  constexpr const char* kClaimsNothing = "/proc/self/status";
  EXPECT_THAT(platform.readFile(kClaimsNothing, nullptr).value_or(""), ::testing::HasSubstr("Name:"));
  EXPECT_THAT(std::string(platform.loadFile(kClaimsNothing, nullptr)->bytes), ::testing::HasSubstr("Name:"));
  FileFailure failure;
  EXPECT_FALSE(platform.readFile(kClaimsNothing, &failure, 10));
  EXPECT_EQ(failure.kind, Kind::TooLarge);
  fs::resize_file(folder.write("huge", ""), std::uintmax_t{1} << 31);
  failure = {};
  EXPECT_FALSE(platform.loadFile(folder.path("huge"), &failure));
  EXPECT_EQ(failure.kind, Kind::TooLarge) << "refused before any of it is read";
}

TEST_F(FilesTest, OnlyRegularFilesAreReadAndReplaced) {
  ASSERT_EQ(::mkfifo(folder.path("fifo").c_str(), 0600), 0);
  sockaddr_un address{AF_UNIX, {}};
  folder.path("socket").copy(address.sun_path, sizeof address.sun_path - 1);
  const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  ASSERT_EQ(::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
  fs::create_directory(folder.path("folder"));
  fs::create_symlink("circle", folder.path("circle"));
  folder.write("f", "x");
  struct Case {
    std::string name;
    Kind read, write;
  };
  const Case cases[] = {{"fifo", Kind::NotRegular, Kind::NotRegular},
                        {"socket", Kind::NotRegular, Kind::NotRegular},
                        {"../../dev/null", Kind::NotRegular, Kind::NotRegular},
                        {"folder", Kind::Folder, Kind::Folder},
                        {"none/f", Kind::Missing, Kind::Missing},
                        {"circle", Kind::System, Kind::System},
                        {"f/x", Kind::System, Kind::System},
                        {"f\0"s, Kind::System, Kind::System},
                        {std::string(300, 'n'), Kind::System, Kind::System}};
  for (const Case& c : cases) {
    const std::string path = folder.path(c.name);
    FileFailure failure, loading, looking;
    EXPECT_FALSE(platform.readFile(path, &failure)) << c.name;
    EXPECT_FALSE(platform.loadFile(path, &loading)) << c.name;
    EXPECT_FALSE(platform.canRead(path, &looking)) << c.name;
    for (const FileFailure& f : {failure, loading, looking}) {
      EXPECT_EQ(f.kind, c.read) << c.name << f.reason;
      EXPECT_NE(f.reason, "");
    }
    const auto refused = written(c.name, "text");
    ASSERT_TRUE(refused) << c.name;
    EXPECT_EQ(refused->kind, c.write) << c.name << refused->reason;
  }
  ::close(socket);
  EXPECT_EQ(folder.entries(), 5u);
  auto file = platform.createFile(folder.path("g"), nullptr, {});
  fs::create_directory(folder.path("g"));
  EXPECT_FALSE(file->commit()) << "a folder has taken the place meanwhile";
  EXPECT_EQ(folder.entries(), 6u);
}

TEST_F(FilesTest, AFileIsThereOnlyOnceItIsComplete) {
  folder.write("f", "old");
  folder.write(".f.tmp", "left over by a program that was killed");
  platform.createFile(folder.path("f"), nullptr, {})->write("dropped");
  EXPECT_EQ(folder.entries(), 1u) << "neither the leftover nor what was not committed";
  const std::string bytes(200'001, 'n');
  auto first = platform.createFile(folder.path("f"), nullptr, {.synced = true});
  auto second = platform.createFile(folder.path("f"), nullptr, {});
  first->write(bytes);
  second->write("second");
  EXPECT_EQ(folder.read("f"), "old");
  EXPECT_TRUE(second->commit());
  EXPECT_EQ(folder.read("f"), "second");
  EXPECT_TRUE(first->commit()) << "two at once do not meet";
  EXPECT_TRUE(folder.read("f") == bytes);
  EXPECT_FALSE(first->commit()) << "there is nothing left to put in place";
  EXPECT_EQ(written("f", "x", {.replaces = false})->kind, Kind::Exists);
  auto fresh = platform.createFile(folder.path("g"), nullptr, {.replaces = false});
  folder.write("g", "came first");
  EXPECT_FALSE(fresh->commit());
  EXPECT_EQ(fresh->failure().kind, Kind::Exists);
  EXPECT_EQ(folder.read("g"), "came first");
  EXPECT_FALSE(written("h", "new", {.replaces = false}));
  EXPECT_EQ(folder.read("h"), "new");
  fs::create_symlink("i", folder.path(".f.tmp"));
  EXPECT_FALSE(written("f", "by another name")) << "what is no leftover is left alone";
  EXPECT_EQ(folder.entries(), 4u);
}

TEST_F(FilesTest, AFullDiskLeavesTheOldFile) {
  folder.write("f", "old");
  rlimit old{};
  ::getrlimit(RLIMIT_FSIZE, &old);
  for (const rlim_t room : {0, 1, 65'536, 199'999}) {
    const rlimit limit{room, old.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &limit);
    const auto failure = written("f", std::string(200'000, 'x'));
    ::setrlimit(RLIMIT_FSIZE, &old);
    ASSERT_TRUE(failure) << room;
    EXPECT_EQ(failure->reason, "File too large");
    EXPECT_EQ(folder.read("f"), "old");
    EXPECT_EQ(folder.entries(), 1u);
  }
}

TEST_F(FilesTest, LinksAreFollowedOnlyWithinTheFolder) {
  for (const char* name : {"work", "work/d", "outside"}) fs::create_directory(folder.path(name));
  folder.write("outside/kept", "kept");
  const std::pair<std::string, std::string> followed[] = {
      {"plain", "d/new"}, {"chain", "plain"}, {"back", "d/../d/new"}, {"whole", folder.path("work/d/new")}};
  for (const auto& [name, to] : followed) {
    fs::create_symlink(to, folder.path("work/" + name));
    EXPECT_FALSE(written("work/" + name, name)) << name;
    EXPECT_EQ(folder.read("work/d/new"), name);
    EXPECT_TRUE(fs::is_symlink(folder.path("work/" + name)));
  }
  fs::create_symlink("../outside", folder.path("work/sub"));
  const std::pair<std::string, std::string> refused[] = {{"up", "../outside/kept"},
                                                         {"root", folder.path("outside/kept")},
                                                         {"dangling", "../outside/fresh"},
                                                         {"through", "sub/kept"},
                                                         {"twice", "up"},
                                                         {"device", "/dev/null"}};
  for (const auto& [name, to] : refused) {
    fs::create_symlink(to, folder.path("work/" + name));
    EXPECT_EQ(kindOfFailure("work/" + name), Kind::LeadsOutside) << name;
  }
  EXPECT_EQ(folder.read("outside/kept"), "kept");
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.path("outside")), fs::directory_iterator()), 1);
}

constexpr uid_t kNobody = 65534;

/// Lets root's tests meet the rights that everybody else has.
class AsNobody {
 public:
  explicit AsNobody(const std::string& folder) : root_(::geteuid() == 0) {
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
  ::chmod(folder.path("f").c_str(), 0);
  FileFailure failure;
  EXPECT_FALSE(platform.readFile(folder.path("f"), &failure));
  EXPECT_EQ(failure.reason, "Permission denied");
  ::chmod(folder.path("f").c_str(), 0400);
  EXPECT_EQ(written("f", "new")->reason, "Permission denied");
  ::chmod(folder.path().c_str(), 0500);
  EXPECT_EQ(written("g", "new")->reason, "Permission denied");
  EXPECT_EQ(folder.entries(), 1u);
  ::chmod(folder.path().c_str(), 0700);
}

TEST_F(FilesTest, OwnerGroupAndModeAreKept) {
  const std::string path = folder.write("f", "old");
  const bool root = ::geteuid() == 0;
  ASSERT_TRUE(!root || ::chown(path.c_str(), kNobody, kNobody) == 0);
  for (const mode_t mode : {0600u, 0640u, 0664u, 0604u}) {
    ::chmod(path.c_str(), mode);
    auto file = platform.createFile(path, nullptr, {});
    file->write("new");
    EXPECT_EQ(statusOf(".f.tmp").st_mode & 0177, 0u) << "open to nobody else meanwhile";
    EXPECT_TRUE(file->commit());
    EXPECT_EQ(statusOf("f").st_mode & 0777, mode);
    EXPECT_EQ(statusOf("f").st_uid, root ? kNobody : ::geteuid());
  }
  if (!root) return;
  // another user may keep neither: what the group might do is then only what everybody may
  ASSERT_EQ(::chown(path.c_str(), 0, 0), 0);
  ::chmod(path.c_str(), 0666);
  ::chmod(folder.path().c_str(), 0777);
  {
    const AsNobody nobody(folder.path());
    EXPECT_FALSE(written("f", "new"));
  }
  EXPECT_EQ(statusOf("f").st_uid, kNobody);
  EXPECT_EQ(statusOf("f").st_mode & 0777, 0666u);
}

/// Sets a variable, or unsets it, for the time of a test.
void set(const char* name, const char* value) {
  value != nullptr ? ::setenv(name, value, 1) : ::unsetenv(name);
}

TEST(Environment, LanguageByTheFirstVariableWithAValue) {
  struct Case {
    const char *all, *messages, *lang;
    bool japanese;
  };
  const Case cases[] = {{nullptr, nullptr, nullptr, false},
                        {nullptr, nullptr, "ja_JP.UTF-8", true},
                        {"", "", "ja", true},
                        {"C", nullptr, "ja_JP.UTF-8", false},
                        {"ja_JP.eucJP", "C", "C", true},
                        {"", "en_US.UTF-8", "ja_JP", false}};
  PosixPlatform platform(-1, -1);
  for (const Case& c : cases) {
    set("LC_ALL", c.all);
    set("LC_MESSAGES", c.messages);
    set("LANG", c.lang);
    EXPECT_EQ(platform.userInterfaceIsJapanese(), c.japanese);
  }
}

TEST(Environment, ClocksRunInTheirUnitsAndNumbersDiffer) {
  PosixPlatform platform(-1, -1);
  const std::int64_t qpc = platform.performanceCounter(), chrono = platform.chronoTicks();
  const std::int32_t clock = platform.clockMilliseconds();
  ::usleep(20'000);
  EXPECT_GE(platform.performanceCounter() - qpc, 20 * (platform.performanceFrequency() / 1000));
  EXPECT_GE(platform.chronoTicks() - chrono, 200'000);
  EXPECT_LT(platform.chronoTicks() - chrono, 100'000'000);
  EXPECT_LE(platform.clockMilliseconds() - clock, 20) << "sleep takes no processor time";
  const auto now = static_cast<double>(std::time(nullptr));
  EXPECT_NEAR(static_cast<double>(platform.chronoTicks()) / 1e7, now, 2);
  std::tm local = platform.localTime();
  EXPECT_NEAR(static_cast<double>(std::mktime(&local)), now, 2);
  bool differs = false;
  for (int i = 0; i < 20; ++i) {
    const int number = platform.randomNumber();
    EXPECT_GE(number, 0);
    differs |= platform.randomNumber() != number;
  }
  EXPECT_TRUE(differs);
}

TEST(Environment, TheWorkingFolderMayHaveALongNameOrBeGone) {
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

}  // namespace
}  // namespace zelvaro
