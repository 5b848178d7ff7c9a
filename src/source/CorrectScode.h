// TCorrectScode, the shared object `cs`: the tallies and the state that the statement checks share.
#pragma once

#include "diag/Limits.h"
#include "diag/MsgBase.h"

namespace zelvaro {

class TCorrectScode : public TMsgBase {
 public:
  using TMsgBase::TMsgBase;

  /// Whether the address operand of the current line ended in a comma; read by the check of the index
  /// register.  False at the start of each line.
  bool CommaAriFlag = false;
};

/// GR0 to GR7, exactly: the reserved words.
template <class View>
constexpr bool isReservedWord(View s) {
  using Char = typename View::value_type;
  return s.size() == 3 && s[0] == Char('G') && s[1] == Char('R') && s[2] >= Char('0') && s[2] <= Char('7');
}

}  // namespace zelvaro
