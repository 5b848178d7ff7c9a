// The words of the macro instructions.
#include "macro/Macro.h"

namespace zelvaro {
namespace {

constexpr int kFirstSaved = 1;  // GR1 to GR7 are saved, GR0 is not
constexpr int kLastSaved = 7;

constexpr int codeOf(Op op) {
  return instruction(op).adrCode;
}

}  // namespace

void macroWords(Op op, int first, int second, std::span<std::int32_t> out) {
  std::size_t at = 0;
  const auto put = [&](std::int32_t word) {
    if (at < out.size()) out[at++] = word;
  };
  const auto push = [&](int gr) {
    put(firstWord(codeOf(Op::PUSH), 0, gr));
    put(0);
  };
  const auto lad = [&](int gr, int adr) {
    put(firstWord(codeOf(Op::LAD), gr));
    put(adr);
  };
  const auto pop = [&](int gr) { put(firstWord(codeOf(Op::POP), gr)); };

  switch (op) {
    case Op::IN:
    case Op::OUT:
      push(1);
      push(2);
      lad(1, first);
      lad(2, second);
      put(firstWord(codeOf(Op::SVC)));
      put(op == Op::IN ? 1 : 2);
      pop(2);
      pop(1);
      break;
    case Op::RPUSH:
      for (int gr = kFirstSaved; gr <= kLastSaved; ++gr) push(gr);
      break;
    case Op::RPOP:
      for (int gr = kLastSaved; gr >= kFirstSaved; --gr) pop(gr);
      break;
    default:
      break;
  }
}

}  // namespace zelvaro
