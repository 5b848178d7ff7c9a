// The assembler listing: address, words, line and statement, and the literals.
#pragma once

#include <string>

#include "engine/Engine.h"

namespace zelvaro::check {

/// The listing as text.  Only what was assembled has one.
std::string listingText(const engine::Assembled& assembled, Language language);

}  // namespace zelvaro::check
