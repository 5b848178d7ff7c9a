// Typed names of every kind reach the file layer, or one argument of the one program meant, and nothing else.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>

#include "platform/TemporaryFolder.h"
#include "program/Program.h"

namespace zelvaro::test {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

/// A name as the folder has it, and as it is typed.
struct Name {
  std::string onDisk;
  std::string typed;
};

std::vector<Name> names() {
  std::vector<Name> out;
  for (const char* plain : {"a b",

                            "x;touch hacked", "$(touch hacked)", "`touch hacked`", "-rf", "--help",
                            "a|touch hacked", "a&touch hacked&", "a>hacked", "*", "?", "~", "$HOME", "%s%n",
                            "it's", "日本語", "\xFF\x80\x82", "a\x1B[2Jb", "#x"})
    out.push_back({std::string(plain) + ".txt", std::string(plain) + ".txt"});
  out.push_back({"sub/in.txt", "sub\\in.txt"});
  out.push_back({"sub/in.txt", "\"sub/in.txt\""});
  out.push_back({"a b.txt", "\"a b\""});
  return out;
}

class Names : public ::testing::Test {
 protected:
  Names() {
    std::filesystem::create_directory(folder.path("sub"));
    editor.writeProgram("my editor",
                        "for a in \"$@\"; do echo \"<$a>\"; done > '" + editor.path("args") + "'\n");
    folder.write("zelvaro.ini",
                 "[Mode]\nLangStr=ENU\nFightFunc=WP\n[Editor]\nTextEditorIndex=1\nTextEditorPath1=\"" +
                     editor.path("my editor") + "\" --wait\n");
  }
  std::string shown(const std::string& typed) { return runProgram(folder.path(), typed).console; }

  TemporaryFolder folder;
  TemporaryFolder editor;
};

TEST_F(Names, AnEditorGetsTheNameAsItsOneArgument) {
  for (const Name& name : names()) {
    SCOPED_TRACE(name.typed);
    folder.write(name.onDisk, "; " + name.onDisk + "\n");
    const std::size_t before = folder.entries();
    std::filesystem::remove(editor.path("args"));
    const std::string console = shown("\n5\n" + name.typed + "\n");
    const std::string argument = (name.onDisk[0] == '-' ? "./" : "") + name.onDisk;
    EXPECT_EQ(editor.read("args"), "<--wait>\n<" + argument + ">\n") << console;
    EXPECT_EQ(folder.entries(), before) << "nothing was started that made a file";
  }
}

TEST_F(Names, ASourceOfThatNameIsRead) {
  for (const Name& name : names()) {
    SCOPED_TRACE(name.typed);
    folder.write(name.onDisk, "P START\n OUT A,L\n RET\nA DC 'It runs.'\nL DC 8\n END\n");
    EXPECT_THAT(shown("\n1\n" + name.typed + "\n"), HasSubstr("It runs."));
  }
  EXPECT_FALSE(std::filesystem::exists(folder.path("hacked")));
}

TEST_F(Names, AFolderOfThatNameIsListed) {
  for (const Name& name : names()) {
    SCOPED_TRACE(name.typed);
    const std::string inFolder = "d" + name.onDisk.substr(0, name.onDisk.size() - 4);
    std::filesystem::create_directories(folder.path(inFolder));
    folder.write(inFolder + "/inside", "");
    std::string typed = name.typed;
    if (typed.ends_with(".txt")) typed.resize(typed.size() - 4);
    if (typed.find_first_of("\"'\\") != std::string::npos) continue;  // "d" would stand in front of a quote
    EXPECT_THAT(shown("\n4\nd" + typed + "\n"), HasSubstr("\ninside\n"));
  }
  EXPECT_FALSE(std::filesystem::exists(folder.path("hacked")));
}

TEST_F(Names, WhatCannotBeANameIsToldAndNothingIsStarted) {
  for (const std::string& typed : {std::string(300, 'n'), std::string("/"), std::string(".."),
                                   std::string("\0", 1), std::string("a\0b.txt", 7), std::string("/dev/zero"),
                                   std::string("\"\""), std::string("none;touch hacked")}) {
    SCOPED_TRACE(typed);
    const Ended ended =
        runProgram(folder.path(), "\n1\n" + typed + "\n\n5\n" + typed + "\n\n4\n" + typed + "\n\n99\n");
    EXPECT_EQ(ended.status, 0);
    EXPECT_THAT(ended.console, Not(HasSubstr("Successfully Assembled!")));
    EXPECT_THAT(ended.console, HasSubstr("Try it again!\n")) << "the dialogue goes on to its last command";
    EXPECT_EQ(editor.read("args"), "");
  }
  EXPECT_FALSE(std::filesystem::exists(folder.path("hacked")));
}

TEST_F(Names, ATextWithoutAProgramHeadIsNoEditor) {
  folder.write("a.txt", "");
  editor.write("script", "touch '" + editor.path("hacked") + "'\n");
  std::filesystem::permissions(editor.path("script"), std::filesystem::perms::owner_all);
  folder.write("zelvaro.ini",
               "[Mode]\nLangStr=ENU\nFightFunc=WP\n[Editor]\nTextEditorIndex=2\nTextEditorPath2=" +
                   editor.path("script") + "\n");
  EXPECT_THAT(shown("\n5\na.txt\n"), HasSubstr("cannot be started. (Exec format error)"));
  EXPECT_FALSE(std::filesystem::exists(editor.path("hacked"))) << "a shell would have taken it";
}

}  // namespace
}  // namespace zelvaro::test
