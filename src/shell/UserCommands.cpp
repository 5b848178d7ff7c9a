#include "shell/UserCommands.h"

#include <algorithm>
#include <array>

#include "MoziCode/Cp932.h"
#include "diag/FailureWords.h"
#include "diag/Say.h"
#include "shell/Prompt.h"

namespace zelvaro {
namespace {

constexpr Message notListed{Severity::Plain,
                            Head::None,
                            args("path", "reason"),
                            {.ja = "フォルダ '{path}' の一覧を表示できません。 ({reason})\n",
                             .en = "The folder '{path}' cannot be listed. ({reason})\n"}};
constexpr Message nothingToDelete{Severity::Plain,
                                  Head::None,
                                  args("path"),
                                  {.ja = "'{path}' はありません。\n", .en = "There is no file '{path}'. \n"}};
constexpr Message deleteIt{Severity::Plain,
                           Head::None,
                           args("path"),
                           {.ja = "'{path}' を削除しますか (y/n)？ ", .en = "Delete '{path}' (y/n)? "}};
constexpr Message stays{Severity::Plain,
                        Head::None,
                        args(),
                        {.ja = "削除しませんでした。\n", .en = "It has not been deleted. \n"}};
constexpr Message isDeleted{
    Severity::Plain, Head::None, args(), {.ja = "削除しました。\n", .en = "It has been deleted. \n"}};
constexpr Message notDeleted{
    Severity::Plain,
    Head::None,
    args("path", "reason"),
    {.ja = "'{path}' を削除できません。 ({reason})\n", .en = "'{path}' cannot be deleted. ({reason})\n"}};
constexpr Message notShown{
    Severity::Plain,
    Head::None,
    args("path", "reason"),
    {.ja = "'{path}' を表示できません。 ({reason})\n", .en = "'{path}' cannot be shown. ({reason})\n"}};
constexpr Message editorNotStarted{Severity::Plain,
                                   Head::None,
                                   args("editor", "reason"),
                                   {.ja = "エディタ '{editor}' を起動できません。 ({reason})\n",
                                    .en = "The editor '{editor}' cannot be started. ({reason})\n"}};
constexpr Message notOpened{Severity::Plain,
                            Head::None,
                            args("path", "reason"),
                            {.ja = "'{path}' を開くことができません。 ({reason})\n",
                             .en = "'{path}' cannot be opened. ({reason})\n"}};
constexpr Message liesAt{Severity::Plain,
                         Head::None,
                         args("place"),
                         {.ja = "次の場所にあります： {place}\n", .en = "It lies at {place}\n"}};

/// CR LF read as line ends: a terminal would show the CR.
std::string withLineFeeds(std::string text) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i)
    if (text[i] != '\r' || i + 1 == text.size() || text[i + 1] != '\n') out += text[i];
  if (!out.empty() && out.back() != '\n') out += '\n';
  return out;
}

bool isYes(const std::string& answer) {
  constexpr std::array<std::string_view, 6> kYes = {"y", "Y", "yes", "はい", "ｙ", "Ｙ"};
  return std::find(kYes.begin(), kYes.end(), withoutBlanks(answer)) != kYes.end();
}

void printText(Platform& platform, std::string_view bytes) {
  platform.print(withLineFeeds(fileTextAsUtf8(bytes)));
}

}  // namespace

void listFolder(Platform& platform, int lang, const std::string& path) {
  FileFailure failure;
  if (const auto listing = platform.folderListing(path, &failure)) {
    platform.print(*listing);
  } else {
    say<WP, notListed>(platform, lang, path, failureWords(failure, lang));
  }
}

void deleteAfterQuestion(Platform& platform, int lang, const std::string& path) {
  if (!platform.exists(path)) return say<WP, nothingToDelete>(platform, lang, path);
  say<WP, deleteIt>(platform, lang, path);
  FileFailure failure;
  const auto answer = platform.readLine();
  if (!answer || !isYes(*answer)) {
    say<WP, stays>(platform, lang);
  } else if (platform.deleteFile(path, &failure)) {
    say<WP, isDeleted>(platform, lang);
  } else {
    say<WP, notDeleted>(platform, lang, path, failureWords(failure, lang));
  }
}

void editFile(Platform& platform, int lang, const EditorCommand& editor, const std::string& path) {
  const EditResult result = platform.editFile(editor, path);
  FileFailure failure = result.failure;
  switch (result.status) {
    case EditResult::Status::Edited:
      return;
    case EditResult::Status::NotStarted:
      return say<WP, editorNotStarted>(platform, lang, result.editor, failureWords(failure, lang));
    case EditResult::Status::NoEditor:
      if (const auto bytes = platform.readFile(path, &failure)) return printText(platform, *bytes);
      break;
    case EditResult::Status::Refused:
      break;
  }
  say<WP, notShown>(platform, lang, path, failureWords(failure, lang));
}

void showFile(Platform& platform, int lang, const EditorCommand& editor, const std::string& path) {
  FileFailure failure;
  if (path.empty()) return;
  if (platform.canRead(path, &failure)) return editFile(platform, lang, editor, path);
  say<WP, notShown>(platform, lang, path, failureWords(failure, lang));
}

void openDocument(Platform& platform, int lang, const std::string& path) {
  FileFailure failure;
  const auto bytes = platform.readFile(path, &failure);
  if (!bytes) return say<WP, notOpened>(platform, lang, path, failureWords(failure, lang));
  if (platform.openOnDesktop(path)) return;
  if (bytes->find('\0') == std::string::npos) return printText(platform, *bytes);
  const auto folder = platform.workingDirectory();
  say<WP, liesAt>(platform, lang, path.starts_with('/') || !folder ? path : *folder + "/" + path);
}

}  // namespace zelvaro
