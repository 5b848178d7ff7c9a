// The names of a program's labels, or of a file's programs.  A table in order and not a hash table: no choice
// of names makes it slow.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace zelvaro {

/// The pair of equal names that a nested loop (each name, then those after it) would find first: the smallest
/// earlier one, and the next one equal to it.
struct EqualNames {
  int first = -1;
  int second = -1;

  bool found() const { return first >= 0; }
};

/// A name with its first eight characters as a number: nearly all names differ in it or are equal.
template <class Char>
struct PackedName {
  std::basic_string_view<Char> text;
  std::uint64_t front = 0;

  explicit PackedName(std::basic_string_view<Char> name) : text(name) {
    for (const Char c : name.substr(0, 8))
      front = front << 8 | (static_cast<std::make_unsigned_t<Char>>(c) & 0xFFu);
  }
};

/// Any total order will do, as nothing shows it.
template <class Char>
struct ByName {
  bool operator()(const PackedName<Char>& a, const PackedName<Char>& b) const {
    return a.front != b.front ? a.front < b.front : a.text < b.text;
  }
};

/// Names are added, then settled, then looked up.  With n names settle() takes n log n comparisons and find()
/// log n.  The texts must outlive the table.
template <class Char, class Order = ByName<Char>>
class NameTable {
 public:
  using View = std::basic_string_view<Char>;

  explicit NameTable(Order order = {}) : before_(std::move(order)) {}

  void clear() { entries_.clear(); }
  /// Adds a name; `at` is 0 or above and rises from call to call.
  void add(View name, int at) { entries_.push_back({PackedName<Char>(name), at}); }
  /// Prepares the table for find(), and returns the first two equal names.
  EqualNames settle();
  /// Where the name is, the first place if it has several, or -1.
  int find(View name) const {
    const PackedName<Char> wanted(name);
    const auto e = std::ranges::lower_bound(entries_, wanted, before_, &Entry::name);
    return e == entries_.end() || e->name.text != name ? -1 : e->at;
  }

 private:
  struct Entry {
    PackedName<Char> name;
    int at;
  };

  std::vector<Entry> entries_;
  Order before_;
};

template <class Char, class Order>
EqualNames NameTable<Char, Order>::settle() {
  const auto inOrder = [this](const Entry& a, const Entry& b) {
    return before_(a.name, b.name) || (a.at < b.at && !before_(b.name, a.name));
  };
  if (!std::ranges::is_sorted(entries_, inOrder)) std::ranges::sort(entries_, inOrder);
  EqualNames pair;
  for (std::size_t i = 1, first = 0; i < entries_.size(); ++i) {
    if (entries_[i].name.text != entries_[first].name.text) {
      first = i;
    } else if (i == first + 1 && (!pair.found() || entries_[first].at < pair.first)) {
      pair = {entries_[first].at, entries_[i].at};
    }
  }
  return pair;
}

}  // namespace zelvaro
