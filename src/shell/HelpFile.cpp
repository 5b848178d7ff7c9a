#include "shell/HelpFile.h"

#include <array>

#include "shell/UserCommands.h"

namespace zelvaro {
namespace {

constexpr std::string_view kHelpFile = "Zelvaro JPN Help.chm";
constexpr Words kGuide{"GUIDE.ja.md", "GUIDE.en.md"};

/// Where the guides are: beside the workspace in the source tree, and in an installation.
constexpr std::array<std::string_view, 4> kGuideFolders{"../docs/", "docs/", "/usr/share/doc/zelvaro/",
                                                        "/usr/local/share/doc/zelvaro/"};

constexpr Message noHelp = notice("help-missing", args("help", "guide"),
                                  {.ja = "ヘルプファイル {help} も手引き {guide} も見つかりませんでした。\n",
                                   .en = "Neither the help file {help} nor the guide {guide} was found.\n"});

}  // namespace

void openHelpFile(TSession& s) {
  const std::string help(kHelpFile);
  if (s.platform.canRead(help)) return openDocument(s, help);
  const std::string_view guide = kGuide.in(s.wording.language);
  for (const std::string_view folder : kGuideFolders) {
    const std::string path = std::string(folder) + std::string(guide);
    if (s.platform.canRead(path)) return editFile(s, s.editorData.Command, path);
  }
  s.channel.say(noHelp, help, guide);
}

RowList rowsOfHelpFile() {
  return rows(noHelp);
}

}  // namespace zelvaro
