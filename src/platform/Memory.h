// Memory that is used for the first time costs more than most of what is done with it.
#pragma once

#include <cstddef>

namespace zelvaro {

/// Asks for large pages under memory that has been taken but not yet touched.  Where the system has none,
/// nothing changes.
void preferLargePages(void* memory, std::size_t size);

}  // namespace zelvaro
