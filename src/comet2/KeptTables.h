// The memory of the large tables of machines, zeroed.
#pragma once

#include <array>
#include <cstddef>
#include <cstdlib>
#include <memory>

namespace zelvaro {

/// While one exists, the tables that its thread's machines give up are kept for the next machines of the
/// thread.  For many short runs one after the other: new pages from the system cost more than clearing the
/// cells that were used, most of all on several threads.
class KeptTables {
 public:
  KeptTables();
  ~KeptTables();
  KeptTables(const KeptTables&) = delete;
  KeptTables& operator=(const KeptTables&) = delete;

  /// The object of this thread, or null.
  static KeptTables* ofThread();

  /// A kept table of that size, whose owner is now the caller, or null.
  void* take(std::size_t bytes);
  /// Keeps a table whose bytes are all 0 again, or frees it.
  void keep(void* memory, std::size_t bytes) noexcept;

 private:
  struct Free {
    void operator()(void* p) const { std::free(p); }
  };
  struct Table {
    std::unique_ptr<void, Free> memory;
    std::size_t bytes = 0;
  };
  std::array<Table, 8> tables_;
  KeptTables* before_;  ///< the object that this one replaces meanwhile
};

/// `bytes` of zeros to be freed with std::free, or null if there is no memory.
void* allocateZeroed(std::size_t bytes);

}  // namespace zelvaro
