#include "shell/HelpFile.h"

#include <array>

#include "diag/Say.h"
#include "shell/UserCommands.h"

namespace zelvaro {
namespace {

constexpr std::string_view kHelpFile = "Zelvaro JPN Help.chm";

/// Where the guides lie: beside a workspace of the sources, and where an installation puts them.
constexpr std::array<std::string_view, 4> kGuideFolders{"../docs/", "docs/", "/usr/share/doc/zelvaro/",
                                                        "/usr/local/share/doc/zelvaro/"};

constexpr Message noHelp{Severity::Plain,
                         Head::None,
                         args("help", "guide"),
                         {.ja = "ヘルプファイル {help} も手引き {guide} も見つかりませんでした。",
                          .en = "Neither the help file {help} nor the guide {guide} was found."}};

}  // namespace

void openHelpFile(TSession& s, int lang) {
  const std::string help(kHelpFile);
  if (s.platform.canRead(help)) {
    openDocument(s.platform, lang, help);
    return;
  }
  const std::string guide(inLanguage(lang, "GUIDE.ja.md", "GUIDE.en.md"));
  for (const std::string_view folder : kGuideFolders) {
    const std::string path = std::string(folder) + guide;
    if (!s.platform.canRead(path)) continue;
    editFile(s.platform, lang, s.editorData.Command, path);
    return;
  }
  say<WP, noHelp>(s.platform, lang, help, guide);
  s.platform.print("\n");
}

}  // namespace zelvaro
