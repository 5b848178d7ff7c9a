// The mode selector, an unlisted command of the main menu: changes the pipeline while the program runs.
#pragma once

#include <cstdint>

#include "shell/Session.h"

namespace zelvaro {

enum class ModeChange : std::uint8_t { None, Chosen, InputEnded };

/// Stores the name that the user picks in `sh`.
ModeChange ModeSelector(TSession& s);

}  // namespace zelvaro
