#include "comet2/KeptTables.h"

#include <utility>

namespace zelvaro {
namespace {

thread_local KeptTables* current = nullptr;

}  // namespace

KeptTables::KeptTables() : before_(std::exchange(current, this)) {}
KeptTables::~KeptTables() {
  current = before_;
}

KeptTables* KeptTables::ofThread() {
  return current;
}

void* KeptTables::take(std::size_t bytes) {
  for (Table& t : tables_)
    if (t.memory != nullptr && t.bytes == bytes) return t.memory.release();
  return nullptr;
}

void KeptTables::keep(void* memory, std::size_t bytes) noexcept {
  std::unique_ptr<void, Free> owned(memory);
  for (Table& t : tables_) {
    if (t.memory != nullptr) continue;
    t = {std::move(owned), bytes};
    return;
  }
}

void* allocateZeroed(std::size_t bytes) {
  void* const kept = current == nullptr ? nullptr : current->take(bytes);
  return kept == nullptr ? std::calloc(bytes, 1) : kept;
}

}  // namespace zelvaro
