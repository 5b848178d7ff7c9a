// The go-on menu: whether a program with Warnings runs.
#pragma once

#include <cstdint>

#include "diag/MsgBase.h"
#include "platform/Platform.h"

namespace zelvaro {

enum class GoOn : std::uint8_t {
  Run,
  MainMenu,
  Leave  ///< the input has ended
};

/// Without Warnings there is no question.
GoOn GoOnMenu(TMsgBase& game, Platform& platform);

}  // namespace zelvaro
