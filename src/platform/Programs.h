// Other programs: started with a list of arguments, never through a shell.
#pragma once

#include <sys/types.h>

#include <csignal>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zelvaro::posix {

/// Signals that this program ignores and the programs that it starts do not: a write to a pipe without a
/// reader, or to a file that has reached the limit of its size, fails with a reason instead.
inline constexpr int kIgnoredSignals[] = {SIGPIPE, SIGXFSZ};

/// Takes a command line apart: blanks and tabs separate, double quotes keep them together and fall away.
/// Nothing else has a meaning.
std::vector<std::string> splitCommandLine(std::string_view commandLine);

/// The words that the setting of an editor stands for: the one program that it names, quotes round it or
/// none, or else those of a command line.
std::vector<std::string> editorCommand(std::string_view setting);

/// A file name as an argument: a relative one gets "./" in front, so that no program takes it for an option,
/// a command ("+..."), a pipe or an address.
std::string asArgument(const std::string& path);

/// Whether a program of that name (without a folder) lies in the search path.
bool isInstalled(const std::string& program);

/// The command of the platform's own text editor, or nothing if the machine has none.
std::optional<std::string> ownEditor();

/// Starts a program and waits for its end; Ctrl+C is the program's alone meanwhile.  With a `terminal` (a
/// descriptor) it reads this program's standard input, and the terminal's settings are put back afterwards;
/// with none (-1) it finds nothing to read.  Returns 0, or the errno that kept it from starting.
int runAndWait(const std::vector<std::string>& arguments, int terminal);

/// Starts a program that lives on by itself, cut off from the console, and stores its process id.  Returns
/// 0 or an errno.
int startDetached(const std::vector<std::string>& arguments, pid_t& pid);

}  // namespace zelvaro::posix
