// Large pages for large tables: the first access to a page costs more than most of the work on its content.
#pragma once

#include <cstddef>

namespace zelvaro {

/// Asks the system to back allocated but untouched memory with large pages.  Has no effect where there are
/// none.
void preferLargePages(void* memory, std::size_t size);

/// For a program that makes many machines one after the other, on any number of threads: large tables come from
/// the system, which provides their pages at the first access, and small blocks stay with the program when
/// they are freed.  Call it before the first thread is started.
void allocateForManyMachines();

}  // namespace zelvaro
