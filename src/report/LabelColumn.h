// The labels of a report's rows, by address.
#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "comet2/Comet2.h"
#include "source/SrcData.h"

namespace zelvaro {

/// The order in which the labelled lines are taken.
enum class LabelOrder : std::uint8_t { OfLines, OfAddresses };

/// The label column.  An address shows the labels of all lines that have it, in the order of the lines, but
/// the search for them ends at the first labelled line with a higher address.  So a label is shown if no
/// labelled line before it has a higher address, that is, if its address is not below the greatest one so
/// far.  A label without an opcode keeps address 0, so it is shown only if every labelled line before it has
/// address 0.  The addresses of the labels shown never decrease, and one pass over the lines finds them.
///
/// The fixed form has a separate table of labels, in which each one is found whatever comes before it: its
/// lines are taken in the order of their addresses.
template <class Char>
class LabelColumn {
 public:
  using View = std::basic_string_view<Char>;

  explicit LabelColumn(std::span<const SrcData<Char>> lines, LabelOrder order = LabelOrder::OfLines);

  /// The labels of an address; none for an address outside of the machine.
  std::span<const View> at(int adr) const {
    if (adr < 0 || adr >= static_cast<int>(first_.size()) - 1) return {};
    const auto i = static_cast<std::size_t>(adr);
    return std::span(labels_).subspan(first_[i], first_[i + 1] - first_[i]);
  }
  /// The length of the text of an address, in characters: its labels, joined by one blank.
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

  std::vector<View> labels_;        ///< the labels shown, in the order of their addresses
  std::vector<std::size_t> first_;  ///< by address: the index of its first label, and an end
};

template <class Char>
LabelColumn<Char>::LabelColumn(std::span<const SrcData<Char>> lines, LabelOrder order) {
  std::vector<const SrcData<Char>*> labelled;
  for (const SrcData<Char>& s : lines)
    if (!s.LabelStr.empty()) labelled.push_back(&s);
  if (order == LabelOrder::OfAddresses) {
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
