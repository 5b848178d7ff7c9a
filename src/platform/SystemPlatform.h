// The platform of the system that the program is built for, and what a program does before it has one.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Platform.h"

namespace zelvaro {

/// The platform with the console of this program.
std::unique_ptr<Platform> systemPlatform();

/// The words of the command line after the program's name, UTF-8, with the files that a pattern stands for where the
/// shell does not look for them.
std::vector<std::string> programArguments(int argc, char** argv);

/// Opens the null device on those of the descriptors 0, 1 and 2 that are closed: otherwise a settings file or a
/// report could get such a number, and the console's output would be written to it.  Call it before any file
/// is opened.
void holdStandardDescriptors();

/// Writes a text to the standard error without taking any memory; false where that fails.
bool writeToStandardError(std::string_view utf8);

}  // namespace zelvaro
