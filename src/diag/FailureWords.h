// Why a file could not be used, in words.
#pragma once

#include <string>

#include "platform/Platform.h"

namespace zelvaro {

/// The reason of a failure for the user: the operating system's words, or words of this program in the language
/// (0 Japanese, else English) where the failure is none of the system's.
std::string failureWords(const FileFailure& failure, int lang);

}  // namespace zelvaro
