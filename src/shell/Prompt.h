// Shared by all prompts: one line of input, and a number in it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/Platform.h"

namespace zelvaro {

/// The next input line, at most `limit` characters of it; the rest is dropped.  Nothing at the end of the
/// input.
std::optional<std::string> askLine(Platform& platform, std::size_t limit);

/// `text` without the blanks at both ends.
std::string withoutBlanks(std::string_view text);
/// `text` without blanks and full-width blanks at both ends.
std::string withoutAnyBlanks(std::string_view text);

/// A decimal number, with or without a sign.  Empty text is 0.  Nothing if any text follows the number; a
/// number that is too large gives the greatest long.
std::optional<long> decimalNumber(const std::string& text);

}  // namespace zelvaro
