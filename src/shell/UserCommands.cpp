#include "shell/UserCommands.h"

#include <algorithm>
#include <array>

#include "MoziCode/Characters.h"
#include "MoziCode/Cp932.h"
#include "diag/FailureWords.h"
#include "shell/Pages.h"

namespace zelvaro {
namespace {

constexpr Message notListed = notice("folder-not-listed", args("path", "reason"),
                                     {.ja = "フォルダ '{path}' の一覧を表示できません。 ({reason})\n",
                                      .en = "The folder '{path}' cannot be listed. ({reason})\n"});
constexpr Message nothingToDelete =
    notice("file-not-there", args("path"),
           {.ja = "'{path}' はありません。\n", .en = "There is no file '{path}'. \n"});
constexpr Message deleteIt =
    notice("delete-question", args("path"),
           {.ja = "'{path}' を削除しますか (y/n)？ ", .en = "Delete '{path}' (y/n)? "});
constexpr Message stays =
    notice("delete-refused", args(), {.ja = "削除しませんでした。\n", .en = "It has not been deleted. \n"});
constexpr Message isDeleted =
    notice("deleted", args(), {.ja = "削除しました。\n", .en = "It has been deleted. \n"});
constexpr Message notDeleted = notice(
    "not-deleted", args("path", "reason"),
    {.ja = "'{path}' を削除できません。 ({reason})\n", .en = "'{path}' cannot be deleted. ({reason})\n"});
constexpr Message notShown = notice(
    "not-shown", args("path", "reason"),
    {.ja = "'{path}' を表示できません。 ({reason})\n", .en = "'{path}' cannot be shown. ({reason})\n"});
constexpr Message editorNotStarted = notice("editor-not-started", args("editor", "reason"),
                                            {.ja = "エディタ '{editor}' を起動できません。 ({reason})\n",
                                             .en = "The editor '{editor}' cannot be started. ({reason})\n"});
constexpr Message notOpened = notice("document-not-opened", args("path", "reason"),
                                     {.ja = "'{path}' を開くことができません。 ({reason})\n",
                                      .en = "'{path}' cannot be opened. ({reason})\n"});
constexpr Message liesAt = notice("document-place", args("place"),
                                  {.ja = "次の場所にあります： {place}\n", .en = "It lies at {place}\n"});

/// Reads CR LF as a line end: a terminal would show the CR.
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
  return std::find(kYes.begin(), kYes.end(), trim(std::string_view(answer))) != kYes.end();
}

void printText(TSession& s, std::string_view bytes) {
  showText(s, withLineFeeds(fileTextAsUtf8(bytes)));
}

}  // namespace

void listFolder(TSession& s, const std::string& path) {
  FileFailure failure;
  if (const auto listing = s.platform.folderListing(path, &failure)) {
    s.platform.print(*listing);
  } else {
    s.channel.say(notListed, path, failureWords(failure));
  }
}

void deleteAfterQuestion(TSession& s, const std::string& path) {
  if (!s.platform.exists(path)) return s.channel.say(nothingToDelete, path);
  s.channel.say(deleteIt, path);
  FileFailure failure;
  const auto answer = s.platform.readLine();
  if (!answer || !isYes(*answer)) {
    s.channel.say(stays);
  } else if (s.platform.deleteFile(path, &failure)) {
    s.channel.say(isDeleted);
  } else {
    s.channel.say(notDeleted, path, failureWords(failure));
  }
}

void printFile(TSession& s, const std::string& path) {
  FileFailure failure;
  if (const auto bytes = s.platform.readFile(path, &failure)) return printText(s, *bytes);
  s.channel.say(notShown, path, failureWords(failure));
}

void editFile(TSession& s, const EditorCommand& editor, const std::string& path) {
  const EditResult result = s.platform.editFile(editor, path);
  switch (result.status) {
    case EditResult::Status::Edited:
      return;
    case EditResult::Status::NotStarted:
      return s.channel.say(editorNotStarted, result.editor, failureWords(result.failure));
    case EditResult::Status::NoEditor:
      return printFile(s, path);
    case EditResult::Status::Refused:
      return s.channel.say(notShown, path, failureWords(result.failure));
  }
}

void showFile(TSession& s, const EditorCommand& editor, const std::string& path) {
  FileFailure failure;
  if (path.empty()) return;
  if (s.platform.canRead(path, &failure)) return editFile(s, editor, path);
  s.channel.say(notShown, path, failureWords(failure));
}

void openDocument(TSession& s, const std::string& path) {
  FileFailure failure;
  const auto bytes = s.platform.readFile(path, &failure);
  if (!bytes) return s.channel.say(notOpened, path, failureWords(failure));
  if (s.platform.openOnDesktop(path)) return;
  if (bytes->find('\0') == std::string::npos) return printText(s, *bytes);
  const auto folder = s.platform.workingDirectory();
  s.channel.say(liesAt, path.starts_with('/') || !folder ? path : *folder + "/" + path);
}

RowList rowsOfUserCommands() {
  return rows(notListed, nothingToDelete, deleteIt, stays, isDeleted, notDeleted, notShown, editorNotStarted,
              notOpened, liesAt);
}

}  // namespace zelvaro
