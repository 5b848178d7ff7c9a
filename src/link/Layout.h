// The order in which the words of a program's lines stand in memory, its literals left out.
#pragma once

#include <span>

#include "encode/Encode.h"
#include "source/FixedForm.h"

namespace zelvaro {

/// Calls each(line) for all lines with an opcode until it returns false: as the lines stand, but in the
/// fixed form the DC and DS lines behind all others.  Returns false where `each` did.
template <class Family, class Each>
bool forEachInMemory(std::span<SrcOf<Family>> lines, Each each) {
  for (SrcOf<Family>& line : lines) {
    if (line.OpStr.empty() || (kIsFixedForm<Family> && isDcOrDs(opOf(line)))) continue;
    if (!each(line)) return false;
  }
  if constexpr (kIsFixedForm<Family>) {
    for (SrcOf<Family>& line : lines)
      if (isDcOrDs(opOf(line)) && !each(line)) return false;
  }
  return true;
}

/// Which operand of a machine instruction with two words is the address.
constexpr int addressOprnd(const Instruction& i) {
  return i.form == OpForm::Branch ? 1 : 2;
}

/// The words of a program in the fixed form.
struct FixedWords {
  std::int32_t code = 0;             ///< the instructions and macros
  std::int32_t max_rl_memory_d = 0;  ///< the DC and DS lines
  std::int32_t max_rl_memory_l = 0;  ///< the literals
  std::int32_t total() const { return code + max_rl_memory_d + max_rl_memory_l; }
};

template <class Family>
FixedWords fixedWords(LineStore<CharOf<Family>>& store, const PrgData<CharOf<Family>>& program) {
  FixedWords words;
  for (const SrcOf<Family>& line : store.linesBeforeEnd(program)) {
    (isDcOrDs(opOf(line)) ? words.max_rl_memory_d : words.code) += line.word_kazu;
    if (const auto* literal = store.literal(line)) words.max_rl_memory_l += literal->WordKazu;
  }
  return words;
}

/// CkMaxMemory on a number of words; `line` stands in the head.  Counts an Error for each limit exceeded.
template <class Family>
void ckMaxMemory(Assembly& a, int line, const FixedWords& words);

}  // namespace zelvaro
