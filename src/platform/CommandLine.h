// The words of a command line, and of the setting of an editor.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace zelvaro {

/// Splits a command line: blanks and tabs separate its words, double quotes keep them together and are
/// removed.  No other character is special.
std::vector<std::string> splitCommandLine(std::string_view commandLine);

/// The words of an editor setting: a single program name if it names an existing program, with or without
/// quotes around it, else the words of a command line.
std::vector<std::string> editorCommand(std::string_view setting,
                                       const std::function<bool(const std::string&)>& isProgram);

}  // namespace zelvaro
