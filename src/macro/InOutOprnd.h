// Shared by the two operand checks of IN and OUT.
#pragma once

#include "source/CorrectScode.h"
#include "source/LineStore.h"

namespace zelvaro {

/// A register name as an operand: GR0 to GR7 and then its end, a blank, a tab or a comma.
template <class View>
constexpr bool isRegisterOprnd(View p) {
  using Char = typename View::value_type;
  return p.size() >= 3 && isReservedWord(p.substr(0, 3)) &&
         (p.size() == 3 || isBlank(p[3]) || p[3] == Char(','));
}

}  // namespace zelvaro
