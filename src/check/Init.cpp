#include "check/Init.h"

#include <fmt/format.h>

#include <array>
#include <sstream>

#include "check/CheckFile.h"
#include "check/Remarks.h"
#include "platform/Surroundings.h"

namespace zelvaro::check {
namespace {

constexpr Message copied =
    notice("init-copied", args("folder", "count", "kept"),
           {.ja = "{folder} にファイルを {count} 個コピーした。すでにあった {kept} 個はそのまま残した。\n",
            .en = "{count} files were copied to {folder}; {kept} were there and are kept.\n"});
constexpr Message noSamples =
    notice("init-no-samples", args(), {.ja = "サンプルが見つからない。", .en = "The samples are not found."});

/// Below a folder of shared data, or of the source tree.
constexpr std::array<std::string_view, 2> kParts{"src", "tasks"};

/// The folder that has the parts: of the installation that the program belongs to, of the source tree, or the
/// program's own folder, as in the zip for Windows.
std::string shareFolder(Platform& platform) {
  const std::string own = folderOfProgram();
  for (const char* place : {"/../share/zelvaro", "/../../workspace", ""})
    if (std::string folder = own + place; platform.exists(folder + "/src/pn100.txt")) return folder;
  return {};
}

class Copy {
 public:
  Copy(Platform& platform, Language language, Screen& screen)
      : platform_(platform), language_(language), screen_(screen) {}

  void folder(const std::string& from, const std::string& to) {
    FileFailure failure;
    if (!makeFolders(to, &failure)) return refuse(fileFault(to, failure, false));
    const auto names = platform_.folderListing(from, &failure);
    if (!names) return refuse(fileFault(from, failure, true));
    std::istringstream lines(*names);
    for (std::string name; std::getline(lines, name);) {
      const bool isFolder = name.ends_with('/');
      if (isFolder) name.pop_back();
      const std::string source = fmt::format("{}/{}", from, name), target = fmt::format("{}/{}", to, name);
      isFolder ? folder(source, target) : file(source, target);
    }
  }

  Status status = Status::Clean;
  int made = 0, kept = 0;

 private:
  void file(const std::string& from, const std::string& to) {
    FileFailure failure;
    const auto bytes = platform_.readFile(from, &failure);
    if (!bytes) return refuse(fileFault(from, failure, true));
    auto out = platform_.createFile(to, &failure, {.replaces = false});
    if (out) out->write(*bytes);
    if (out && out->commit()) {
      ++made;
    } else if (platform_.exists(to)) {
      ++kept;
    } else {
      refuse(fileFault(to, out ? out->failure() : failure, false));
    }
  }
  void refuse(const Remark& fault) {
    screen_.err("zelvaro-check: " + fault.text.in(language_) + "\n", Shade::Plain);
    status = Status::File;
  }

  Platform& platform_;
  Language language_;
  Screen& screen_;
};

}  // namespace

Status initFolder(const std::string& folder, Language language, Platform& platform, Screen& screen) {
  const std::string share = shareFolder(platform);
  if (share.empty()) {
    screen.err("zelvaro-check: " + say(language, noSamples) + "\n", Shade::Plain);
    return Status::File;
  }
  Copy copy(platform, language, screen);
  for (const std::string_view part : kParts)
    copy.folder(share + '/' + std::string(part), folder + '/' + std::string(part));
  screen.out(say(language, copied, folder, copy.made, copy.kept));
  return copy.status;
}

RowList rowsOfInit() {
  return rows(copied, noSamples);
}

}  // namespace zelvaro::check
