#include "shell/HelpFile.h"

#include <array>

#include "platform/Surroundings.h"
#include "shell/UserCommands.h"

namespace zelvaro {
namespace {

constexpr std::string_view kHelpFile = "Zelvaro JPN Help.chm";
constexpr Words kGuide{"GUIDE.ja.md", "GUIDE.en.md"};

/// Where the guides are: beside the workspace in the source tree, and in an installation.
constexpr std::array<std::string_view, 4> kGuideFolders{"../docs/", "docs/", "/usr/share/doc/zelvaro/",
                                                        "/usr/local/share/doc/zelvaro/"};
/// Where the zip for Windows has them, below the folder of the program: pages for the browser.
constexpr Words kGuidePage{"/docs/GUIDE.ja.html", "/docs/GUIDE.en.html"};

/// The keys of the pager, in its last row.  Pagers in use print no other characters than these there.
constexpr std::string_view kPagerKeys = "Space: next page  b: page before  q: end";

constexpr Message onDesktop = notice(
    "guide-on-desktop", args("path"),
    {.ja = "手引き '{path}' をデスクトップで開きます。\n", .en = "The desktop opens the guide '{path}'. \n"});
constexpr Message noHelp = notice("help-missing", args("help", "guide"),
                                  {.ja = "ヘルプファイル {help} も手引き {guide} も見つかりませんでした。\n",
                                   .en = "Neither the help file {help} nor the guide {guide} was found.\n"});

/// Shows a guide where it cannot be changed by mistake: on the desktop, in a pager or page by page.
void showGuide(TSession& s, const std::string& path) {
  if (!s.platform.consoleSize()) return editFile(s, s.editorData.Command, path);
  if (s.platform.openOnDesktop(path)) return s.channel.say(onDesktop, path);
  if (!s.platform.pageFile(path, std::string(kPagerKeys))) printFile(s, path);
}

}  // namespace

void openHelpFile(TSession& s) {
  const std::string help(kHelpFile);
  if (s.platform.canRead(help)) return openDocument(s, help);
  const std::string_view guide = kGuide.in(s.wording.language);
  for (const std::string_view folder : kGuideFolders) {
    const std::string path = std::string(folder) + std::string(guide);
    if (s.platform.canRead(path)) return showGuide(s, path);
  }
  const std::string page = folderOfProgram() + std::string(kGuidePage.in(s.wording.language));
  if (s.platform.canRead(page)) return showGuide(s, page);
  s.channel.say(noHelp, help, guide);
}

RowList rowsOfHelpFile() {
  return rows(onDesktop, noHelp);
}

}  // namespace zelvaro
