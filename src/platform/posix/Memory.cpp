#include "platform/Memory.h"

#include <malloc.h>
#include <sys/mman.h>

#include <memory>

namespace zelvaro {

void preferLargePages(void* memory, std::size_t size) {
  constexpr std::size_t kPage = 4096;
  constexpr std::size_t kLargePage = std::size_t{2} << 20;
  std::size_t room = size;
  if (size < kLargePage || std::align(kPage, kPage, memory, room) == nullptr) return;
  ::madvise(memory, room / kPage * kPage, MADV_HUGEPAGE);
}

void allocateForManyMachines() {
  constexpr int kLargeTable = 128 * 1024, kKept = 64 * 1024 * 1024;
  ::mallopt(M_MMAP_THRESHOLD, kLargeTable);
  ::mallopt(M_TRIM_THRESHOLD, kKept);
  ::mallopt(M_TOP_PAD, 1024 * 1024);
}

}  // namespace zelvaro
