// Other programs: started with a list of arguments, never through a shell.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/windows/System.h"

namespace zelvaro::windows {

/// An argument as a part of a command line, from which the started program takes it apart: in quotes if it is empty or
/// has a blank or a quote, with backslashes before a quote doubled.  No other character is special, since no
/// command interpreter reads the line.
std::string quotedArgument(std::string_view argument);

/// A file name as an argument: with backslashes, a relative name with ".\" before it, so that no program takes it for
/// an option.
std::string asArgument(const std::string& path);

/// The words of an editor setting.
std::vector<std::string> editorCommand(std::string_view setting);

/// The system's text editor.
std::string ownEditor();

/// Starts a program and waits for its end; meanwhile Ctrl+C does not end this program.  The program reads the console if
/// `readsConsole`, else its input is empty.  Returns 0, or the system's error of the failed start.
DWORD runAndWait(const std::vector<std::string>& arguments, bool readsConsole);

/// Opens a document with the program that the user has chosen for its kind; false if there is none.
bool openDocument(const std::string& path);

}  // namespace zelvaro::windows
