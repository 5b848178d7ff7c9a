// operator new of this test program, and calloc by way of the linker (see tests/CMakeLists.txt).
#include "faults/Allocation.h"

#include <cstdlib>
#include <new>

namespace zelvaro::test {
namespace {

struct Plan {
  bool active = false;
  long at = 0;
  bool lasts = false;
  long allocations = 0;
};
Plan plan;

bool isStruck() {
  if (!plan.active) return false;
  ++plan.allocations;
  return plan.at != 0 && (plan.lasts ? plan.allocations >= plan.at : plan.allocations == plan.at);
}

void* allocate(std::size_t size) {
  void* memory = isStruck() ? nullptr : std::malloc(size != 0 ? size : 1);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

}  // namespace

AllocationFaults::AllocationFaults(long at, Lack lack) {
  plan = {true, at, lack == Lack::Lasts, 0};
}
AllocationFaults::~AllocationFaults() {
  plan.active = false;
}
long AllocationFaults::allocations() const {
  return plan.allocations;
}

}  // namespace zelvaro::test

void* operator new(std::size_t size) {
  return zelvaro::test::allocate(size);
}
void* operator new[](std::size_t size) {
  return zelvaro::test::allocate(size);
}
void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete[](void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
  std::free(memory);
}

extern "C" {
void* __real_calloc(std::size_t count, std::size_t size);
void* __wrap_calloc(std::size_t count, std::size_t size);
void* __wrap_calloc(std::size_t count, std::size_t size) {
  return zelvaro::test::isStruck() ? nullptr : __real_calloc(count, size);
}
}
