// The macro instructions IN, OUT, RPUSH and RPOP.
#pragma once

#include <span>

#include "encode/Encode.h"

namespace zelvaro {

/// IN and OUT: cleans the operand buffers, sets word_kazu to 12.
template <class Char>
void macro2(Assembly& a, SrcData<Char>& line);
/// RPUSH and RPOP: no operand; sets word_kazu to 14 or 7.
template <class Char>
void macroR2(Assembly& a, SrcData<Char>& line);
/// Checks the form of operand n, 1 or 2, of an IN or OUT in the address pass.
template <class Char>
void address3_ck(Assembly& a, SrcData<Char>& line, int n);
/// Finds the two labels of an IN or OUT: Word1 and Word2 of the line become their addresses.
template <class Char>
void InOut1(Assembly& a, SrcData<Char>& line);

inline constexpr int kInOutWords = 12;
inline constexpr int kRpushWords = 14;
inline constexpr int kRpopWords = 7;

/// Writes the words of a macro line, as many as its word_kazu, in their order.  `first` and `second` are
/// the addresses of the operands of an IN or OUT.
void macroWords(Op op, int first, int second, std::span<std::int32_t> out);

}  // namespace zelvaro
