// The settings file, zelvaro.ini: sections in square brackets, one key=value on a line.
#pragma once

#include <string>

#include "shell/Session.h"

namespace zelvaro {

/// Reads the settings into the objects of the session.  Without a file a default one is written first.  A
/// file that cannot be read or does not parse is told, kept as <path>.bak and replaced by a default one.
void ReadIni(TSession& s, const std::string& path);

/// Writes the settings of the running program.  A failure is told; the old file stays as it was then.
void WriteIni(TSession& s, const std::string& path);

/// Writes a new file in the user's language.
void WriteDefaultIni(TSession& s, const std::string& path);

}  // namespace zelvaro
