#include "platform/Memory.h"

#include <malloc.h>
#include <sys/mman.h>

#include <array>
#include <cstdlib>
#include <memory>

namespace zelvaro {
namespace {

/// Set once, before there are threads.
bool keepsTables = false;

/// The recycled tables of a thread.
class Tables {
 public:
  void* take(std::size_t bytes) {
    for (Table& t : tables_) {
      if (t.memory == nullptr || t.bytes != bytes) continue;
      t.bytes = 0;
      return t.memory.release();
    }
    return nullptr;
  }
  void keep(void* memory, std::size_t bytes) noexcept {
    Memory owned(memory);
    for (Table& t : tables_) {
      if (t.memory != nullptr) continue;
      t = {std::move(owned), bytes};
      return;
    }
  }

 private:
  struct Free {
    void operator()(void* p) const { std::free(p); }
  };
  using Memory = std::unique_ptr<void, Free>;
  struct Table {
    Memory memory;
    std::size_t bytes = 0;
  };
  std::array<Table, 8> tables_;
};

Tables& tablesOfThread() {
  thread_local Tables tables;
  return tables;
}

}  // namespace

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
  keepsTables = true;
}

void* allocateZeroed(std::size_t bytes) {
  void* const kept = keepsTables ? tablesOfThread().take(bytes) : nullptr;
  return kept == nullptr ? std::calloc(bytes, 1) : kept;
}

bool recyclesZeroed() {
  return keepsTables;
}

void recycleZeroed(void* memory, std::size_t bytes) noexcept {
  tablesOfThread().keep(memory, bytes);
}

}  // namespace zelvaro
