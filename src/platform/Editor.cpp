// What is handed to other programs: a file to the editor, a document to the desktop; and deleting.
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

#include "platform/Files.h"
#include "platform/PosixPlatform.h"
#include "platform/Programs.h"

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

std::optional<std::string> PosixPlatform::folderListing(const std::string& path, FileFailure* failure) {
  return posix::folderListing(path, failure);
}

bool PosixPlatform::deleteFile(const std::string& path, FileFailure* failure) {
  if (::unlink(path.c_str()) == 0) return true;
  posix::tell(failure, posix::wordsOf(errno));
  return false;
}

EditResult PosixPlatform::editFile(const EditorCommand& editor, const std::string& path) {
  std::vector<std::string> command = posix::splitCommandLine(editor.commandLine);
  if (command.empty()) {
    const bool terminal = input_.isTerminal() && output_.isTerminal();
    const auto own = terminal ? posix::ownEditor() : std::nullopt;
    if (!own) return {EditResult::Status::NoEditor, {}, {}};
    command.push_back(*own);
  }
  command.push_back(posix::asArgument(path));
  flush();
  const int error = posix::runAndWait(command, input_.isTerminal());
  if (error == 0) return {};
  return {EditResult::Status::NotStarted, command.front(), posix::wordsOf(error)};
}

bool PosixPlatform::openOnDesktop(const std::string& path) {
  if (!hasDisplay() || !posix::isInstalled("xdg-open")) return false;
  // those of earlier calls that have ended leave the process table here
  std::erase_if(started_, [](pid_t pid) { return ::waitpid(pid, nullptr, WNOHANG) != 0; });
  pid_t pid = 0;
  if (posix::startDetached({"xdg-open", posix::asArgument(path)}, pid) != 0) return false;
  started_.push_back(pid);
  return true;
}

}  // namespace zelvaro
