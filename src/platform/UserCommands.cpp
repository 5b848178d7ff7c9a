// What the menu asks of the outside world: list, delete, edit, open.
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>

#include "MoziCode/Characters.h"
#include "platform/Files.h"
#include "platform/PosixPlatform.h"
#include "platform/Programs.h"

namespace zelvaro {
namespace {

std::string inWords(bool english, const std::string& ja, const std::string& en) {
  return english ? en : ja;
}

/// CR LF read as line ends: a terminal would show the CR.
std::string withLineFeeds(std::string text) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i)
    if (text[i] != '\r' || i + 1 == text.size() || text[i + 1] != '\n') out += text[i];
  if (!out.empty() && out.back() != '\n') out += '\n';
  return out;
}

bool isYes(std::string_view answer) {
  answer = trim(answer);
  constexpr std::array<std::string_view, 6> kYes = {"y", "Y", "yes", "はい", "ｙ", "Ｙ"};
  for (const std::string_view yes : kYes)
    if (answer == yes) return true;
  return false;
}

bool hasDisplay() {
  for (const char* variable : {"DISPLAY", "WAYLAND_DISPLAY"}) {
    const char* value = std::getenv(variable);
    if (value != nullptr && *value != '\0') return true;
  }
  return false;
}

}  // namespace

void PosixPlatform::listFolder(const std::string& path, bool english) {
  FileFailure failure;
  const auto listing = posix::folderListing(path, &failure);
  if (listing) {
    print(*listing);
  } else {
    print(inWords(english, "フォルダ '" + path + "' の一覧を表示できません。 (" + failure.reason + ")\n",
                  "The folder '" + path + "' cannot be listed. (" + failure.reason + ")\n"));
  }
}

void PosixPlatform::deleteAfterQuestion(const std::string& path, bool english) {
  if (!exists(path)) {
    print(inWords(english, "'" + path + "' はありません。\n", "There is no file '" + path + "'. \n"));
    return;
  }
  print(inWords(english, "'" + path + "' を削除しますか (y/n)？ ", "Delete '" + path + "' (y/n)? "));
  const auto answer = readLine();
  if (!answer || !isYes(*answer)) {
    print(inWords(english, "削除しませんでした。\n", "It has not been deleted. \n"));
  } else if (::unlink(path.c_str()) == 0) {
    print(inWords(english, "削除しました。\n", "It has been deleted. \n"));
  } else {
    const std::string reason = posix::wordsOf(errno);
    print(inWords(english, "'" + path + "' を削除できません。 (" + reason + ")\n",
                  "'" + path + "' cannot be deleted. (" + reason + ")\n"));
  }
}

void PosixPlatform::printFile(const std::string& path, bool english) {
  FileFailure failure;
  const auto bytes = readFile(path, &failure);
  if (bytes) {
    print(withLineFeeds(fileTextAsUtf8(*bytes)));
  } else {
    print(inWords(english, "'" + path + "' を表示できません。 (" + failure.reason + ")\n",
                  "'" + path + "' cannot be shown. (" + failure.reason + ")\n"));
  }
}

void PosixPlatform::editFile(const EditorCommand& editor, const std::string& path, bool english) {
  if (path.empty()) return;
  std::vector<std::string> command = posix::splitCommandLine(editor.commandLine);
  if (command.empty()) {
    const bool terminal = input_.isTerminal() && output_.isTerminal();
    const auto own = terminal ? posix::ownEditor() : std::nullopt;
    if (!own) {
      printFile(path, english);
      return;
    }
    command.push_back(*own);
  }
  runEditor(std::move(command), path, english);
}

void PosixPlatform::runEditor(std::vector<std::string> command, const std::string& path, bool english) {
  const std::string name = command.front();
  command.push_back(posix::asArgument(path));
  flush();
  const int error = posix::runAndWait(command, input_.isTerminal());
  if (error == 0) return;
  const std::string reason = posix::wordsOf(error);
  print(inWords(english, "エディタ '" + name + "' を起動できません。 (" + reason + ")\n",
                "The editor '" + name + "' cannot be started. (" + reason + ")\n"));
}

/// Hands a document to the desktop's own program.  False where there is none.
bool PosixPlatform::openOnDesktop(const std::string& path) {
  if (!hasDisplay() || !posix::isInstalled("xdg-open")) return false;
  // those of earlier calls that have ended leave the process table here
  std::erase_if(started_, [](pid_t pid) { return ::waitpid(pid, nullptr, WNOHANG) != 0; });
  pid_t pid = 0;
  if (posix::startDetached({"xdg-open", posix::asArgument(path)}, pid) != 0) return false;
  started_.push_back(pid);
  return true;
}

void PosixPlatform::openDocument(const std::string& path, bool english) {
  FileFailure failure;
  const auto bytes = readFile(path, &failure);
  if (!bytes) {
    print(inWords(english, "'" + path + "' を開くことができません。 (" + failure.reason + ")\n",
                  "'" + path + "' cannot be opened. (" + failure.reason + ")\n"));
    return;
  }
  if (openOnDesktop(path)) return;
  if (bytes->find('\0') == std::string::npos) {
    print(withLineFeeds(fileTextAsUtf8(*bytes)));
    return;
  }
  const auto folder = workingDirectory(nullptr);
  const std::string place = path.starts_with('/') || !folder ? path : *folder + "/" + path;
  print(inWords(english, "次の場所にあります： " + place + "\n", "It lies at " + place + "\n"));
}

}  // namespace zelvaro
