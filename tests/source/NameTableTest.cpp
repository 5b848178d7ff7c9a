// The table of labels and program names: what it finds, and how its work grows whatever the names are.
#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <utility>

#include "source/NameTable.h"

namespace zelvaro {
namespace {

/// Counts the comparisons of all its copies.
struct Counting : ByName<char16_t> {
  std::size_t* steps;

  explicit Counting(std::size_t& count) : steps(&count) {}
  bool operator()(const PackedName<char16_t>& a, const PackedName<char16_t>& b) const {
    ++*steps;
    return ByName::operator()(a, b);
  }
};

std::u16string number(std::size_t n) {
  std::u16string text;
  for (; n > 0; n /= 10) text += static_cast<char16_t>(u'0' + n % 10);
  return text;
}

TEST(NameTable, NoChoiceOfNamesMakesItSlow) {
  constexpr std::size_t kNames = 1000, kBuckets = 1109;  // what a hash table of the library has for them
  std::vector<std::u16string> same, colliding, alike;
  for (std::size_t n = 0; colliding.size() < kNames; ++n)
    if (std::hash<std::u16string>()(u"L" + number(n)) % kBuckets == 0) colliding.push_back(u"L" + number(n));
  for (std::size_t n = 0; n < kNames; ++n) {
    same.push_back(u"L");
    alike.push_back(u"ALL BEGIN ALIKE" + number(n));
  }
  for (const auto& names : {same, colliding, alike}) {
    const double log = std::log2(kNames);
    std::size_t steps = 0;
    NameTable<char16_t, Counting> table{Counting(steps)};
    for (std::size_t i = 0; i < kNames; ++i) table.add(names[i], static_cast<int>(i));
    table.settle();
    EXPECT_LT(static_cast<double>(steps), 4 * kNames * log);
    steps = 0;
    for (const auto& name : names) EXPECT_EQ(names[static_cast<std::size_t>(table.find(name))], name);
    EXPECT_LT(static_cast<double>(steps), kNames * (log + 2));
  }
}

TEST(NameTable, FindsWhatANestedLoopWouldFind) {
  std::mt19937 random(1);
  const std::u16string_view letters[] = {u"A", u"\u0141", u"B", u"AAAAAAAA", {u"\0", 1}};
  for (int round = 0; round < 2000; ++round) {
    std::vector<std::u16string> names(1 + random() % 12);
    NameTable<char16_t> table;
    for (int i = 0; i < static_cast<int>(names.size()); ++i) {
      std::u16string& name = names[static_cast<std::size_t>(i)];
      for (auto k = 1 + random() % 3; k > 0; --k) name += letters[random() % 5];
      table.add(name, i);
    }
    std::pair expected{-1L, -1L};
    for (auto one = names.begin(); expected.first < 0 && one != names.end(); ++one)
      if (const auto other = std::find(one + 1, names.end(), *one); other != names.end())
        expected = {one - names.begin(), other - names.begin()};
    const EqualNames pair = table.settle();
    EXPECT_EQ(std::pair(long{pair.first}, long{pair.second}), expected);
    for (const auto& name : names)
      EXPECT_EQ(table.find(name), std::find(names.begin(), names.end(), name) - names.begin());
    for (const auto* none : {u"", u"C", u"AAAAAAAB"}) EXPECT_EQ(table.find(none), -1);
  }
}

}  // namespace
}  // namespace zelvaro
