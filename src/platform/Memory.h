// Large pages for large tables: the first access to a page costs more than most of the work on its content.
#pragma once

#include <cstddef>

namespace zelvaro {

/// Asks the system to back allocated but untouched memory with large pages.  Has no effect where there are
/// none.
void preferLargePages(void* memory, std::size_t size);

/// For a program that makes many machines one after the other, on any number of threads: large tables come from
/// the system, which provides their pages at the first access, small blocks stay with the program when they are
/// freed, and so do the tables of recycleZeroed.  Call it before the first thread is started.
void allocateForManyMachines();

/// `bytes` of zeros to be freed with std::free, or null if there is no memory.  They may come from a table that
/// this thread has recycled.
void* allocateZeroed(std::size_t bytes);
/// Whether tables are kept; else clearing them would be of no use.
bool recyclesZeroed();
/// Keeps a table of allocateZeroed, whose bytes are all 0 again, for this thread's next one, or frees it.
/// Giving it back to the system would cost more: each processor that runs a thread has to be told.
void recycleZeroed(void* memory, std::size_t bytes) noexcept;

}  // namespace zelvaro
