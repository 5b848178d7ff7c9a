// The labels of a report's rows, by address.
#pragma once

#include <algorithm>
#include <span>
#include <string_view>
#include <vector>

#include "comet2/Comet2.h"
#include "source/SrcData.h"

namespace zelvaro {

/// The label column.  An address shows the labels of all lines that have it, in the order of the lines, but
/// a search for it ends at the first labelled line that lies above it.  So a label shows if no labelled
/// line in front of it lies above its own address, that is, if its address is not below the greatest one
/// so far.  A label without an opcode keeps address 0 and shows only where nothing before it has moved on.
/// The labels that show rise with their addresses, and one walk over the lines finds them.
///
/// The fixed form has its labels in a table of their own, in which each one is found whatever lies in front
/// of it: its lines are taken by rising address.
template <class Char>
class LabelColumn {
 public:
  using View = std::basic_string_view<Char>;

  explicit LabelColumn(std::span<const SrcData<Char>> lines, bool byAddress = false);

  /// The labels of an address; none for an address that the machine does not have.
  std::span<const View> at(int adr) const {
    if (adr < 0 || adr >= static_cast<int>(first_.size()) - 1) return {};
    const auto i = static_cast<std::size_t>(adr);
    return std::span(labels_).subspan(first_[i], first_[i + 1] - first_[i]);
  }
  /// Characters of the text of an address: its labels, joined by one blank.
  static int length(std::span<const View> labels) {
    std::size_t total = labels.empty() ? 0 : labels.size() - 1;
    for (const View label : labels) total += label.size();
    return static_cast<int>(total);
  }
  /// The longest text of the addresses below `end`, at least `atLeast`.
  int longest(int end, int atLeast) const;

 private:
  void add(const SrcData<Char>& line) {
    first_.resize(static_cast<std::size_t>(line.AbAdr) + 1, labels_.size());
    labels_.push_back(line.LabelStr);
  }

  std::vector<View> labels_;        ///< the labels that show, by rising address
  std::vector<std::size_t> first_;  ///< by address, its first label; one element more than addresses
};

template <class Char>
LabelColumn<Char>::LabelColumn(std::span<const SrcData<Char>> lines, bool byAddress) {
  std::vector<const SrcData<Char>*> labelled;
  for (const SrcData<Char>& s : lines)
    if (!s.LabelStr.empty()) labelled.push_back(&s);
  if (byAddress) {
    std::stable_sort(labelled.begin(), labelled.end(),
                     [](const auto* s, const auto* t) { return s->AbAdr < t->AbAdr; });
  }
  int greatest = 0;
  for (const SrcData<Char>* s : labelled) {
    if (s->AbAdr < greatest) continue;
    greatest = s->AbAdr;
    if (greatest >= kMemoryCells) break;
    add(*s);
  }
  first_.push_back(labels_.size());
}

template <class Char>
int LabelColumn<Char>::longest(int end, int atLeast) const {
  for (int adr = 0; adr < end; ++adr) atLeast = std::max(atLeast, length(at(adr)));
  return atLeast;
}

}  // namespace zelvaro
