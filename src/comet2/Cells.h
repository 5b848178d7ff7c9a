// Rows of cells that cost nothing until they are used.  Memory that is touched for the first time is the
// chief cost of a short run, so nothing here writes a cell that nobody has asked for.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <new>

namespace zelvaro {

/// `size` values of 0, given page by page as they are touched.
template <class T>
class ZeroedArray {
 public:
  explicit ZeroedArray(std::size_t size) : data_(static_cast<T*>(std::calloc(size, sizeof(T)))) {
    if (data_ == nullptr) throw std::bad_alloc();
  }
  T* get() const { return data_.get(); }

 private:
  struct Free {
    void operator()(T* p) const { std::free(p); }
  };
  std::unique_ptr<T[], Free> data_;
};

/// A row of 32-bit cells that begin with the same value, 0 or another.  Indexes are 0 to size - 1.
class Cells {
 public:
  Cells(std::size_t size, std::int32_t initial) : size_(size), initial_(initial), cells_(size) {}
  Cells(const Cells& other) : Cells(other.size_, other.initial_) { copy(other); }
  Cells& operator=(const Cells& other) {
    if (this == &other) return *this;
    *this = Cells(other);
    return *this;
  }
  Cells(Cells&&) noexcept = default;
  Cells& operator=(Cells&&) noexcept = default;

  std::size_t size() const { return size_; }
  /// From here on every cell has the value it began with.
  std::size_t touched() const { return touched_; }
  std::int32_t operator[](std::size_t at) const { return at < touched_ ? cells_.get()[at] : initial_; }
  std::int32_t& operator[](std::size_t at) {
    if (at >= touched_) touch(at);
    return cells_.get()[at];
  }
  /// All cells, for a reader and writer that goes where it likes.
  std::int32_t* data() {
    if (initial_ != 0 && touched_ < size_) touch(size_ - 1);
    touched_ = size_;
    return cells_.get();
  }
  std::int32_t* begin() { return data(); }
  std::int32_t* end() { return data() + size_; }

  /// Sets every cell to the value it began with.
  void reset() {
    if (initial_ == 0 && touched_ == size_)
      cells_ = ZeroedArray<std::int32_t>(size_);
    else if (initial_ == 0)
      std::fill_n(cells_.get(), touched_, 0);
    touched_ = 0;
  }

 private:
  /// Cells below touched_ hold their value; those from there on hold 0 in storage.
  void touch(std::size_t at) {
    if (initial_ != 0) std::fill(cells_.get() + touched_, cells_.get() + at + 1, initial_);
    touched_ = at + 1;
  }
  void copy(const Cells& other) {
    std::copy_n(other.cells_.get(), other.touched_, cells_.get());
    touched_ = other.touched_;
  }

  std::size_t size_;
  std::int32_t initial_;
  std::size_t touched_ = 0;
  ZeroedArray<std::int32_t> cells_;
};

}  // namespace zelvaro
