// What a program without a dialogue needs of the outside besides Platform: its second stream, variables of the
// environment, folders, changes of files, signals of an end.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/Platform.h"

namespace zelvaro {

/// The variable of the environment, or nothing if it has no value.
std::optional<std::string> environmentVariable(const char* name);
/// Whether a standard descriptor, 0 to 2, is a terminal.
bool isTerminal(int descriptor);
/// Whether a terminal of this program's user shows colours.
bool terminalHasColors();
/// All that comes from standard input, or nothing on a failure; more than `most` bytes are one.
std::optional<std::string> readStandardInput(std::size_t most, FileFailure* failure);
/// Makes a folder and those above it that do not exist.
bool makeFolders(const std::string& path, FileFailure* failure);
/// A value that differs when the file's content has been changed; 0 for no file.
std::uint64_t stampOfFile(const std::string& path);
void waitMilliseconds(int milliseconds);
/// The folder in which the running program lies, or an empty text.
std::string folderOfProgram();

}  // namespace zelvaro
