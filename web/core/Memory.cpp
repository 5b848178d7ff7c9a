// The memory of the page has no large pages.
#include "platform/Memory.h"

namespace zelvaro {

void preferLargePages(void*, std::size_t) {}

}  // namespace zelvaro
