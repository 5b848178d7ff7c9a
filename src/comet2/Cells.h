// Arrays of cells that cost nothing until they are used.  The first access to a page of memory is the main
// cost of a short run, so nothing here writes a cell before it is needed.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <new>
#include <utility>

#include "platform/Memory.h"

namespace zelvaro {

/// Allocates `size` values of 0, which the system provides page by page at the first access.
template <class T>
class ZeroedArray {
 public:
  explicit ZeroedArray(std::size_t size) : data_(static_cast<T*>(allocateZeroed(size * sizeof(T)))) {
    if (data_ == nullptr) throw std::bad_alloc();
  }
  T* get() const { return data_.get(); }
  /// Gives up the array of `size` values, which are all 0 again.
  void recycle(std::size_t size) noexcept { recycleZeroed(data_.release(), size * sizeof(T)); }

 private:
  struct Free {
    void operator()(T* p) const { std::free(p); }
  };
  std::unique_ptr<T[], Free> data_;
};

/// An array of 32-bit cells with a common initial value, 0 or another.  Indexes are 0 to size - 1.  A move is a
/// copy, so that no array is left without its cells.
class Cells {
 public:
  Cells(std::size_t size, std::int32_t initial) : size_(size), initial_(initial), cells_(size) {}
  Cells(const Cells& other) : Cells(other.size_, other.initial_) {
    std::copy_n(other.cells_.get(), other.touched_, cells_.get());
    touched_ = other.touched_;
  }
  Cells& operator=(const Cells& other) {
    Cells copy(other);
    std::swap(size_, copy.size_);
    std::swap(initial_, copy.initial_);
    std::swap(touched_, copy.touched_);
    std::swap(cells_, copy.cells_);
    return *this;
  }
  ~Cells() { recycle(); }

  std::size_t size() const { return size_; }
  /// The cells from this index on have never been used: they hold the initial value.
  std::size_t touched() const { return touched_; }
  std::int32_t operator[](std::size_t at) const { return at < touched_ ? cells_.get()[at] : initial_; }
  std::int32_t& operator[](std::size_t at) {
    if (at >= touched_) touch(at);
    return cells_.get()[at];
  }
  /// All cells, for random access: sets those not used so far to the initial value first.
  std::int32_t* data() {
    if (initial_ != 0 && touched_ < size_) touch(size_ - 1);
    touched_ = size_;
    return cells_.get();
  }
  std::int32_t* begin() { return data(); }
  std::int32_t* end() { return data() + size_; }

  /// Writes the initial value to every cell.
  void reset() {
    if (initial_ == 0 && touched_ == size_)
      cells_ = ZeroedArray<std::int32_t>(size_);
    else if (initial_ == 0)
      std::fill_n(cells_.get(), touched_, 0);
    touched_ = 0;
  }

 private:
  /// Cells below touched_ hold their value; those from touched_ on are 0 in the storage.
  void touch(std::size_t at) {
    if (initial_ != 0) std::fill(cells_.get() + touched_, cells_.get() + at + 1, initial_);
    touched_ = at + 1;
  }
  void recycle() noexcept {
    if (!recyclesZeroed()) return;
    std::fill_n(cells_.get(), touched_, 0);
    cells_.recycle(size_);
  }

  std::size_t size_;
  std::int32_t initial_;
  std::size_t touched_ = 0;
  ZeroedArray<std::int32_t> cells_;
};

}  // namespace zelvaro
