// The instruction set as a table, read from Instructions.def.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace zelvaro {

enum class Op : std::int16_t {
#define ZELVARO_INSTRUCTION(mnemonic, ...) mnemonic,
#include "encode/Instructions.def"
#undef ZELVARO_INSTRUCTION
  Unknown = -1
};

enum class OpClass : std::uint8_t { Assembler, Machine, Macro, NhOnly };
enum class OpForm : std::uint8_t { Both, Memory, Branch, Single, None, Data, Start, End, InOut, Regs };
enum class SecondOprnd : std::uint8_t { No, Begins, Exact, Refuse7, Refuse9 };
enum class OpExtra : std::uint8_t { None, MissingFirst, WarnsGR89, OwnRefusal, WarnsAlways };

struct Instruction {
  Op op;
  std::string_view mnemonic;
  OpClass opClass;
  OpForm form;
  int adrCode;  ///< operation code of the two-word form, or of the only form
  int regCode;  ///< operation code of the form r1,r2, or 0
  SecondOprnd second;
  OpExtra extra;
  std::string_view nameJa;  ///< name of the instruction for messages, empty if it has none
  std::string_view nameEn;
  std::string_view effect;
};

inline constexpr std::array kInstructions{
#define ZELVARO_INSTRUCTION(m, c, f, adr, reg, sec, extra, ja, en, effect) \
  Instruction{Op::m, #m, OpClass::c, OpForm::f, adr, reg, SecondOprnd::sec, OpExtra::extra, ja, en, effect},
#include "encode/Instructions.def"
#undef ZELVARO_INSTRUCTION
};

constexpr const Instruction& instruction(Op op) {
  return kInstructions[static_cast<std::size_t>(op)];
}

/// Which mnemonics exist: EXIT exists in the fixed form only.
enum class Mnemonics : std::uint8_t { Common, WithEXIT };

/// The row of a mnemonic, upper case and exact, or Op::Unknown.
template <class Char>
Op findOp(std::basic_string_view<Char> word, Mnemonics known = Mnemonics::Common);

/// DC or DS.
constexpr bool isDcOrDs(Op op) {
  return op == Op::DC || op == Op::DS;
}

/// First word: operation code in bits 15 to 8, r in 7 to 4, x or r2 in 3 to 0.
constexpr int firstWord(int code, int r = 0, int x = 0) {
  return code << 8 | r << 4 | x;
}

}  // namespace zelvaro
