// The memory of the page: no large pages, no threads, one machine.
#include "platform/Memory.h"

#include <cstdlib>

namespace zelvaro {

void preferLargePages(void*, std::size_t) {}
void allocateForManyMachines() {}
void* allocateZeroed(std::size_t bytes) {
  return std::calloc(bytes, 1);
}
bool recyclesZeroed() {
  return false;
}
void recycleZeroed(void* memory, std::size_t) noexcept {
  std::free(memory);
}

}  // namespace zelvaro
