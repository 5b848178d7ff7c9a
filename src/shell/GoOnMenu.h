// The go-on menu: whether a program that has drawn warnings runs.
#pragma once

#include <cstdint>

#include "diag/MsgBase.h"

namespace zelvaro {

enum class GoOn : std::uint8_t {
  Run,
  MainMenu,
  Leave  ///< the input has ended
};

/// Without Warnings there is no question.
GoOn GoOnMenu(const TMsgBase& game);

}  // namespace zelvaro
