// Other programs: started with a list of arguments, never through a shell.
#pragma once

#include <sys/types.h>

#include <csignal>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zelvaro::posix {

/// Signals that this program ignores, but the programs that it starts do not: a write to a pipe without a
/// reader, or to a file at its size limit, fails with an error instead.
inline constexpr int kIgnoredSignals[] = {SIGPIPE, SIGXFSZ};

/// The words of an editor setting; a name without a folder is a program's if it lies in the search path.
std::vector<std::string> editorCommand(std::string_view setting);

/// A file name as an argument: a relative name is prefixed with "./", so that no program takes it for an
/// option, a command ("+..."), a pipe or an address.
std::string asArgument(const std::string& path);

/// A text as the value of the prompt option of less, in which some characters have a meaning.
std::string asPagerPrompt(const std::string& text);

/// Whether a program of that name (without a folder) lies in the search path.
bool isInstalled(const std::string& program);

/// The command of the platform's own text editor, or nothing if the machine has none.
std::optional<std::string> ownEditor();

/// Starts a program and waits for its end; meanwhile only that program receives Ctrl+C.  With a `terminal` (a
/// descriptor) it reads this program's standard input, and the terminal's settings are restored afterwards;
/// with none (-1) its input is empty.  `variables` ("NAME=value") replace those of this program's environment.
/// Returns 0, or the errno of the failed start.
int runAndWait(const std::vector<std::string>& arguments, int terminal,
               const std::vector<std::string>& variables = {});

/// Starts a program in the background, detached from the console, and stores its process id.  Returns 0 or an
/// errno.
int startDetached(const std::vector<std::string>& arguments, pid_t& pid);

}  // namespace zelvaro::posix
