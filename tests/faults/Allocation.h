// Lets the memory run out at a chosen allocation.
#pragma once

namespace zelvaro::test {

/// Counts the allocations of this process while it lives, from 1 on; the one of number `at` fails (0: none),
/// and where the lack lasts every later one too.
class AllocationFaults {
 public:
  enum class Lack { Passes, Lasts };
  AllocationFaults(long at, Lack lack);
  ~AllocationFaults();
  AllocationFaults(const AllocationFaults&) = delete;
  AllocationFaults& operator=(const AllocationFaults&) = delete;
  long allocations() const;
};

}  // namespace zelvaro::test
