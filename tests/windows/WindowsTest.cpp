// The platform on the system itself, and our table of CP932 beside the system's.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <io.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <thread>

#include "MoziCode/Cp932.h"
#include "MoziCode/Utf.h"
#include "platform/Surroundings.h"
#include "platform/windows/Paths.h"
#include "platform/windows/Programs.h"
#include "platform/windows/WindowsPlatform.h"

namespace zelvaro::windows {
namespace {

using Kind = FileFailure::Kind;
using namespace std::string_literals;

class WindowsFiles : public testing::Test {
 protected:
  void SetUp() override {
    std::filesystem::remove_all(wide(folder));
    ASSERT_TRUE(makeFolders(folder, nullptr));
  }
  void TearDown() override { std::filesystem::remove_all(wide(folder)); }

  std::string path(const std::string& name) const { return folder + "/" + name; }
  FileFailure written(const std::string& name, const std::string& bytes, FileWriting how = {}) {
    FileFailure failure;
    const auto file = platform.createFile(path(name), &failure, how);
    if (!file) return failure;
    file->write(bytes);
    file->commit();
    return file->failure();
  }
  Kind kindOf(const std::string& name) {
    FileFailure failure{Kind::Exists, {}};
    EXPECT_FALSE(platform.readFile(name, &failure, Platform::kAnySize)) << name;
    return failure.kind;
  }

  // none of the letters but the first is in the code page of a European machine
  const std::string folder = "é 日本語 𠮷.tests";
  WindowsPlatform platform;
};

TEST_F(WindowsFiles, OfAPatternOfAnArgumentAreFound) {
  for (const char* name : {"b.cas", "a.cas", "表.cas", "a.txt", "-.cas"})
    EXPECT_EQ(written(name, "").reason, "");
  ASSERT_TRUE(makeFolders(path("d.cas"), nullptr));
  using Names = std::vector<std::string>;
  EXPECT_EQ(filesOfArgument(path("*.cas")),
            (Names{path("-.cas"), path("a.cas"), path("b.cas"), path("表.cas")}));
  EXPECT_EQ(filesOfArgument(path("?.c*")), filesOfArgument(path("*.cas")));
  for (const std::string& none : {path("*.none"), path("a.cas"), "--color=*"s, "*/a.cas"s, "none/*"s, ""s})
    EXPECT_EQ(filesOfArgument(none), Names{none});
}

TEST_F(WindowsFiles, AreWrittenReadListedAndDeletedByAnyName) {
  EXPECT_EQ(written("報告.txt", "a\nb\n\n", {.synced = true, .isText = true}).reason, "");
  EXPECT_EQ(platform.readFile(path("報告.txt"), nullptr, Platform::kAnySize), "a\r\nb\r\n\r\n");
  EXPECT_EQ(written("報告.txt", std::string(200'000, '\n')).reason, "") << "replaced, as it is";
  EXPECT_EQ(platform.readFile(path("報告.txt"), nullptr, Platform::kAnySize), std::string(200'000, '\n'));
  EXPECT_EQ(kindOf(folder), Kind::Folder);
  EXPECT_EQ(kindOf(path("NUL")), Kind::NotRegular);
  EXPECT_EQ(kindOf(path("none")), Kind::Missing);
  EXPECT_EQ(kindOf("a\xFF"), Kind::Missing);
  EXPECT_EQ(written("報告.txt", "x", {.replaces = false}).kind, Kind::Exists);
  EXPECT_EQ(written(".", "x").kind, Kind::Folder);
  ASSERT_TRUE(makeFolders(path("う/え"), nullptr));
  EXPECT_EQ(platform.folderListing(folder, nullptr), "う/\n報告.txt\n");
  FileFailure failure;
  EXPECT_FALSE(platform.deleteFile(path("う"), &failure));
  EXPECT_EQ(failure.kind, Kind::Folder);
  EXPECT_TRUE(platform.deleteFile(path("報告.txt"), nullptr));
  EXPECT_FALSE(platform.exists(path("報告.txt")));
}

TEST_F(WindowsFiles, HaveNamesOfAnyLength) {
  std::string deep = "d";
  for (int i = 0; i < 8; ++i) deep += "/" + std::string(50, static_cast<char>('a' + i));
  ASSERT_TRUE(makeFolders(path(deep), nullptr));
  EXPECT_EQ(written(deep + "/f.txt", "x").reason, "");
  EXPECT_EQ(platform.readFile(path(deep + "/f.txt"), nullptr, Platform::kAnySize), "x");
  EXPECT_EQ(platform.folderListing(path(deep), nullptr), "f.txt\n");
  EXPECT_TRUE(platform.deleteFile(path(deep + "/f.txt"), nullptr));
  for (; deep != "d"; deep.resize(deep.rfind('/')))
    ::RemoveDirectoryW(fullName(path(deep), nullptr)->c_str());
}

TEST_F(WindowsFiles, KeepTheOldContentUntilTheNewOneIsWhole) {
  written("f", "old");
  {
    auto first = platform.createFile(path("f"), nullptr, {});
    const auto second = platform.createFile(path("f"), nullptr, {});
    ASSERT_TRUE(first && second) << "two programs that write at once";
    first->write("new");
    EXPECT_EQ(platform.readFile(path("f"), nullptr, Platform::kAnySize), "old");
    first.reset();
    EXPECT_EQ(platform.folderListing(folder, nullptr), ".f.2.tmp\nf\n");
  }
  std::ofstream(wide(path(".f.tmp")).c_str()) << "of a program that was killed";
  EXPECT_EQ(written("f", "new").reason, "");
  EXPECT_EQ(platform.folderListing(folder, nullptr), "f\n");
  EXPECT_EQ(platform.readFile(path("f"), nullptr, Platform::kAnySize), "new");
  ::SetFileAttributesW(wide(path("f")).c_str(), FILE_ATTRIBUTE_READONLY);
  EXPECT_EQ(written("f", "x").reason, "Permission denied");
  ::SetFileAttributesW(wide(path("f")).c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(WindowsFiles, AreWrittenThroughALinkOnlyInsideTheirFolder) {
  written("inside", "old");
  const auto link = [&](const char* name, const char* to) {
    ::CreateSymbolicLinkW(wide(path(name)).c_str(), wide(to).c_str(),
                          SYMBOLIC_LINK_FLAG_ALLOW_UNPRIVILEGED_CREATE);
    return platform.exists(path(name));
  };
  std::ofstream("outside") << "old";
  if (!link("kept", "inside") || !link("left", "..\\outside")) GTEST_SKIP() << "wine 8 makes no links";
  EXPECT_EQ(written("kept", "new").reason, "");
  EXPECT_EQ(platform.readFile(path("inside"), nullptr, Platform::kAnySize), "new");
  EXPECT_EQ(written("left", "new").kind, Kind::LeadsOutside);
  std::filesystem::remove("outside");
}

/// What the C library of a started program makes of an argument.
TEST(WindowsPrograms, GetEachArgumentAsItWas) {
  std::mt19937 random(1);
  const std::vector<std::string> parts{" ", "\"", "\\", "\\\\", "&", "%PATH%", "^",
                                       "a", "|",  "日", "\t",   "<", "'"};
  for (int i = 0; i < 3000; ++i) {
    std::vector<std::string> words(1 + random() % 3);
    std::string line = "program";
    for (std::string& word : words) {
      for (auto n = random() % 7; n > 0; --n) word += parts[random() % parts.size()];
      line += " " + quotedArgument(word);
    }
    int count = 0;
    wchar_t** got = ::CommandLineToArgvW(wide(line).c_str(), &count);
    ASSERT_EQ(static_cast<std::size_t>(count), words.size() + 1) << line;
    for (std::size_t w = 0; w < words.size(); ++w) EXPECT_EQ(narrow(got[w + 1]), words[w]) << line;
    ::LocalFree(got);
  }
  EXPECT_EQ(asArgument("-p.txt"), ".\\-p.txt");
  EXPECT_EQ(asArgument("/p"), "\\p");
  EXPECT_EQ(asArgument("c:/a b"), "c:\\a b");
}

TEST(WindowsPrograms, AreNoBatchFilesAndNotOfTheWorkingFolder) {
  for (const char* name : {"here.exe", "here.bat"}) std::ofstream(name) << "echo";
  const EditResult batch = WindowsPlatform().editFile({".\\here.bat"}, "f.txt");
  EXPECT_EQ(batch.status, EditResult::Status::NotStarted);
  EXPECT_EQ(batch.failure.kind, Kind::Missing);
  EXPECT_EQ(WindowsPlatform().editFile({"here.exe"}, "f.txt").failure.kind, Kind::Missing);
  EXPECT_NE(WindowsPlatform().editFile({".\\here.exe"}, "f.txt").failure.kind, Kind::Missing)
      << "found, no program";
  EXPECT_EQ(WindowsPlatform().editFile({"hostname -x \"a b\""}, "f.txt").status, EditResult::Status::Edited);
  for (const char* name : {"here.exe", "here.bat"}) std::filesystem::remove(name);
}

TEST(WindowsConsole, ReadsAndWritesUtf8ThroughAPipe) {
  int in[2], out[2];
  ASSERT_EQ(::_pipe(in, 4096, _O_BINARY), 0);
  ASSERT_EQ(::_pipe(out, 4096, _O_BINARY), 0);
  const std::string typed = "日本\r\nx\x1A\ny";
  ::_write(in[1], typed.data(), static_cast<unsigned>(typed.size()));
  ::_close(in[1]);
  {
    WindowsPlatform platform(in[0], out[1]);
    EXPECT_EQ(platform.readLine(), "日本");
    EXPECT_EQ(platform.readLine(), "x\x1A");
    EXPECT_EQ(platform.readLine(), "y");
    EXPECT_FALSE(platform.readLine());
    EXPECT_TRUE(platform.inputHasEnded());
    EXPECT_FALSE(platform.consoleSize());
    platform.print("語\x1B\n");
  }
  char got[16];
  EXPECT_EQ(std::string(got, static_cast<std::size_t>(::_read(out[0], got, 16))), "語\x1B\n");
  WindowsPlatform platform(in[0], out[1]);
  ::_close(out[0]);
  platform.print("lost");
  platform.flush();
  EXPECT_TRUE(platform.consoleIsGone());
  ::_close(in[0]);
  ::_close(out[1]);
}

TEST(WindowsClocks, GoOnWithTheTime) {
  WindowsPlatform platform;
  const auto chrono = platform.chronoTicks(), counter = platform.performanceCounter();
  std::this_thread::sleep_for(std::chrono::milliseconds(50));
  EXPECT_GE(platform.chronoTicks() - chrono, 300'000);
  EXPECT_GE(platform.performanceCounter() - counter, platform.performanceFrequency() * 3 / 100);
  EXPECT_GE(platform.clockMilliseconds(), 0);
}

/// One character of the system's code page, by its own function; 0 for none.
char16_t systemWide(const std::string& bytes) {
  wchar_t c[4];
  const int size = static_cast<int>(bytes.size());
  return ::MultiByteToWideChar(932, MB_ERR_INVALID_CHARS, bytes.data(), size, c, 4) == 1 ? char16_t{c[0]}
                                                                                         : u'\0';
}

TEST(WindowsCp932, MapsAllCodesAsTheSystemDoes) {
  std::string different;
  for (int lead = 0; lead < 0x100; ++lead) {
    const bool isDouble = isCp932Lead(static_cast<char>(lead));
    for (int trail = isDouble ? 0x40 : 0; trail <= (isDouble ? 0xFC : 0); ++trail) {
      std::string code(1, static_cast<char>(lead));
      if (isDouble) code += static_cast<char>(trail);
      std::u16string own;
      const bool known = cp932ToUtf16(code, own) && own.size() == 1;
      if ((known ? own[0] : u'\0') != systemWide(code)) different += code;
    }
  }
  EXPECT_EQ(different, "\x80") << "the system takes it for a control character";
}

TEST(WindowsCp932, MapsAllCharactersAsTheSystemDoes) {
  // Codes that ours has for look-alikes, which a text from another system contains
  const std::u16string lookAlikes = u"¢£¥¬—‖‾−〜";
  // Control and private characters that the system has for bytes that are no characters
  const std::u16string noCharacters = u"\u0080\uF8F0\uF8F1\uF8F2\uF8F3";
  std::u16string onlyOwn, onlyTheirs, other;
  for (std::uint32_t code = 0; code < 0x10000; ++code) {
    const auto c = static_cast<char16_t>(code);
    if (isHighSurrogate(c) || isLowSurrogate(c)) continue;
    const wchar_t text = static_cast<wchar_t>(c);
    char bytes[4];
    BOOL replaced = FALSE;
    const int size = ::WideCharToMultiByte(932, WC_NO_BEST_FIT_CHARS, &text, 1, bytes, 4, nullptr, &replaced);
    const std::string theirs = replaced ? "" : std::string(bytes, static_cast<std::size_t>(size));
    std::string own;
    if (!utf16ToCp932({&c, 1}, own)) own.clear();
    if (own != theirs) (theirs.empty() ? onlyOwn : own.empty() ? onlyTheirs : other) += c;
  }
  EXPECT_EQ(toUtf8(onlyOwn), toUtf8(lookAlikes));
  EXPECT_EQ(toUtf8(onlyTheirs), toUtf8(noCharacters));
  EXPECT_EQ(toUtf8(other), "");
}

}  // namespace
}  // namespace zelvaro::windows
