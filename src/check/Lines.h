// The lines of a text that the checker reads: input for IN, expected output.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zelvaro::check {

/// The lines of a file in any of the encodings of a source, as UTF-8 without their line ends (LF or CR LF).
std::vector<std::string> linesOf(std::string_view bytes);
/// The same for text that is UTF-8 already.
std::vector<std::string> linesOfText(std::string_view utf8);

}  // namespace zelvaro::check
