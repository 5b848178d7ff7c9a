// The settings file, zelvaro.ini: sections in square brackets, one key=value on a line.
#pragma once

#include <string>

#include "shell/Session.h"

namespace zelvaro {

/// Reads the settings into the objects of the session.  Without a file a default one is written first.  A
/// file that was read and does not parse is reported, kept as <path>.bak (.bak2 ... where there is one) and
/// replaced by a default one.  One that cannot be read, or is larger than 1 MiB, is reported and left alone.
void ReadIni(TSession& s, const std::string& path);

/// Writes the settings of the running program, but not over a file that ReadIni has left alone.  A failure is
/// reported; the old file stays as it was then.
void WriteIni(TSession& s, const std::string& path);

/// Writes a new file in the user's language.
void WriteDefaultIni(TSession& s, const std::string& path);

}  // namespace zelvaro
