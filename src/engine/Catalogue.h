// Every message that the program can issue.
#pragma once

#include "diag/Message.h"

namespace zelvaro {

/// All rows, file by file in the order in which their checks can issue them.  A file with rows lists them at its
/// end and has its name in Catalogue.cpp.
RowList allRows();

}  // namespace zelvaro
