// The order in which the words of a program's lines are placed in memory, without its literals.
#pragma once

#include <span>

#include "diag/Limits.h"
#include "encode/Encode.h"

namespace zelvaro {

/// Calls each(line) for all lines with an opcode until it returns false: in the order of the lines, or with
/// the DC and DS lines after all others.  Returns false if `each` did.
template <class Char, class Each>
bool forEachInMemory(std::span<SrcData<Char>> lines, DataPlace dataPlace, Each each) {
  const bool dataLater = dataPlace == DataPlace::AfterCode;
  for (SrcData<Char>& line : lines)
    if (!line.OpStr.empty() && !(dataLater && isDcOrDs(opOf(line))) && !each(line)) return false;
  if (!dataLater) return true;
  for (SrcData<Char>& line : lines)
    if (isDcOrDs(opOf(line)) && !each(line)) return false;
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

template <class Char>
FixedWords fixedWords(LineStore<Char>& store, const PrgData<Char>& program) {
  FixedWords words;
  for (const SrcData<Char>& line : store.linesBeforeEnd(program)) {
    (isDcOrDs(opOf(line)) ? words.max_rl_memory_d : words.code) += line.word_kazu;
    if (const auto* literal = store.literal(line)) words.max_rl_memory_l += literal->WordKazu;
  }
  return words;
}

/// CkMaxMemory on a number of words; `line` is printed in the head.  Counts an Error for each limit exceeded.
void ckMaxMemory(Assembly& a, int line, const FixedWords& words);

}  // namespace zelvaro
