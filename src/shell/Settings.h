// The settings file, zelvaro.ini: sections in square brackets, one key=value on a line.
#pragma once

#include <string>

#include "shell/Session.h"

namespace zelvaro {

/// Reads the settings into the objects of the session.  Without a file a default one is written first.  A
/// file that does not parse is reported, saved as <path>.bak (.bak2 ... if that exists) and replaced by a
/// default one.  A file that cannot be read, or is larger than 1 MiB, is reported and left unchanged.
void ReadIni(TSession& s, const std::string& path);

/// Writes the settings of the running program, but not over a file that ReadIni has left unchanged.  A
/// failure is reported, and the old file is unchanged then.
void WriteIni(TSession& s, const std::string& path);

/// Writes a new file in the user's language.
void WriteDefaultIni(TSession& s, const std::string& path);

}  // namespace zelvaro
