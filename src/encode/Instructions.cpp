#include "encode/Instructions.h"

#include <unordered_map>

#include "MoziCode/Characters.h"

namespace zelvaro {
namespace {

constexpr std::size_t kLongestMnemonic = 5;

constexpr std::uint64_t keyOf(std::string_view mnemonic) {
  std::uint64_t key = 0;
  for (const char c : mnemonic) key = key << 8 | static_cast<unsigned char>(c);
  return key;
}

const std::unordered_map<std::uint64_t, Op>& opsByKey() {
  static const auto table = [] {
    std::unordered_map<std::uint64_t, Op> t;
    for (const Instruction& i : kInstructions) t.emplace(keyOf(i.mnemonic), i.op);
    return t;
  }();
  return table;
}

}  // namespace

template <class Char>
Op findOp(std::basic_string_view<Char> word, Mnemonics known) {
  if (word.size() > kLongestMnemonic) return Op::Unknown;
  std::uint64_t key = 0;
  for (const Char c : word) {
    if (!isCapital(c)) return Op::Unknown;
    key = key << 8 | static_cast<unsigned char>(c);
  }
  const auto at = opsByKey().find(key);
  if (at == opsByKey().end()) return Op::Unknown;
  if (instruction(at->second).opClass == OpClass::NhOnly && known != Mnemonics::WithEXIT) return Op::Unknown;
  return at->second;
}

template Op findOp(std::u16string_view, Mnemonics);
template Op findOp(std::string_view, Mnemonics);

}  // namespace zelvaro
