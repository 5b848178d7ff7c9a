// Files of a learner: bytes to text and back.
#pragma once

#include <string>
#include <string_view>

#include "Json.h"

namespace zelvaro::web {

/// The members of the answer of `decode`.
void putDecoded(Json& out, std::string_view bytes, const engine::Options& options);

/// A character that CP932 lacks becomes '?'.
std::string utf8ToCp932(std::string_view utf8);
/// The first of these characters: a list of Lacking.
void putLacking(Json& out, std::string_view utf8);

}  // namespace zelvaro::web
