// What every prompt shares: one line of the user, and a number in it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/Platform.h"

namespace zelvaro {

/// The next input line, at most `limit` characters of it; what lies beyond is dropped.  Nothing at the end
/// of the input.
std::optional<std::string> askLine(Platform& platform, std::size_t limit);

/// `text` without the blanks at both ends.
std::string withoutBlanks(std::string_view text);
/// `text` without blanks and full-width blanks at both ends.
std::string withoutAnyBlanks(std::string_view text);

/// A decimal number, with a sign or without.  Empty text is 0.  Nothing if there is a rest behind the
/// number; a number that is too large gives the greatest one.
std::optional<long> decimalNumber(const std::string& text);

}  // namespace zelvaro
