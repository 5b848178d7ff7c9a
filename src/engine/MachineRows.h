// The messages of the engine itself: why a run pauses, for which the dialogue has no words.
#pragma once

#include "diag/Message.h"

namespace zelvaro::engine {

RowList machineRows();

}  // namespace zelvaro::engine
