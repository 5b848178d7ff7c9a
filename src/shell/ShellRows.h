// Every message of the dialogue itself.
#pragma once

#include "diag/Message.h"

namespace zelvaro {

/// The rows of the menus, prompts, settings and user commands; engine/Catalogue.h has those of the core.
RowList shellRows();

}  // namespace zelvaro
