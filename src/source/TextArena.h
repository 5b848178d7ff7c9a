// Memory for the texts of a source file: views into it stay valid until clear().
#pragma once

#include <algorithm>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

namespace zelvaro {

template <class Char>
class TextArena {
 public:
  using View = std::basic_string_view<Char>;

  /// Room for `size` characters, to be filled by the caller.
  Char* allocate(std::size_t size) {
    if (size > left_) newBlock(size);
    Char* at = next_;
    next_ += size;
    left_ -= size;
    return at;
  }
  /// A copy of `text`, valid until clear().
  View keep(View text) {
    Char* at = allocate(text.size());
    std::copy(text.begin(), text.end(), at);
    return View(at, text.size());
  }
  void clear() {
    blocks_.clear();
    next_ = nullptr;
    left_ = 0;
  }

 private:
  static constexpr std::size_t kBlock = 32 * 1024;  // characters

  void newBlock(std::size_t atLeast) {
    const std::size_t size = std::max(atLeast, kBlock);
    std::unique_ptr<Char[]> block(new Char[size]);  // without a value: most of it is written once
    blocks_.push_back(std::move(block));
    next_ = blocks_.back().get();
    left_ = size;
  }

  std::vector<std::unique_ptr<Char[]>> blocks_;
  Char* next_ = nullptr;
  std::size_t left_ = 0;
};

}  // namespace zelvaro
