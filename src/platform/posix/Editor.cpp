// Opening a file in an editor or a pager, opening a document with the desktop.
#include <sys/stat.h>
#include <sys/wait.h>

#include <cstdlib>

#include "platform/posix/Files.h"
#include "platform/posix/PosixPlatform.h"
#include "platform/posix/Programs.h"

namespace zelvaro {
namespace {

bool hasDisplay() {
  for (const char* variable : {"DISPLAY", "WAYLAND_DISPLAY"}) {
    const char* value = std::getenv(variable);
    if (value != nullptr && *value != '\0') return true;
  }
  return false;
}

}  // namespace

EditResult PosixPlatform::editFile(const EditorCommand& editor, const std::string& path) {
  struct stat status {};
  const bool exists = ::stat(path.c_str(), &status) == 0;
  if (const auto refusal = exists ? posix::refusalOf(status.st_mode) : std::nullopt)
    return {EditResult::Status::Refused, {}, *refusal};
  std::vector<std::string> command = posix::editorCommand(editor.commandLine);
  if (command.empty()) {
    const auto own = consoleSize() ? posix::ownEditor() : std::nullopt;
    if (!own) return {EditResult::Status::NoEditor, {}, {}};
    command.push_back(*own);
  }
  command.push_back(posix::asArgument(path));
  flush();
  const int error = posix::runAndWait(command, input_.isTerminal() ? input_.descriptor() : -1);
  if (error == 0) return {};
  return {EditResult::Status::NotStarted, command.front(), failureOf(error)};
}

/// The variables are for a pager that starts no command, opens no second file and leaves no record of its use.
bool PosixPlatform::pageFile(const std::string& path, const std::string& keys) {
  if (!consoleSize() || !posix::isInstalled("less")) return false;
  flush();
  return posix::runAndWait(
             {"less", "-Ps" + posix::asPagerPrompt(keys), posix::asArgument(path)}, input_.descriptor(),
             {"LESSSECURE=1", "LESSHISTFILE=-", "LESSCHARSET=utf-8", "LESSOPEN=", "LESS="}) == 0;
}

bool PosixPlatform::openOnDesktop(const std::string& path) {
  if (!hasDisplay() || !posix::isInstalled("xdg-open")) return false;
  // reap the programs of earlier calls that have ended
  std::erase_if(started_, [](pid_t pid) { return ::waitpid(pid, nullptr, WNOHANG) != 0; });
  pid_t pid = 0;
  if (posix::startDetached({"xdg-open", posix::asArgument(path)}, pid) != 0) return false;
  started_.push_back(pid);
  return true;
}

}  // namespace zelvaro
