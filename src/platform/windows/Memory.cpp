#include "platform/Memory.h"

namespace zelvaro {

/// Large pages need a right that a user does not have.
void preferLargePages(void*, std::size_t) {}

/// The system's heap takes large tables from the system, and keeps small blocks, by itself.
void allocateForManyMachines() {}

}  // namespace zelvaro
