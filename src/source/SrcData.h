// The records of the line store: a line with a statement, an operand of a DC, a literal, a program.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "source/NameTable.h"

namespace zelvaro {

template <class Char>
using ViewOf = std::basic_string_view<Char>;

/// What a constant of a DC or of a literal is.
enum class ConstKind : std::uint8_t {
  Const,      ///< not yet determined
  Dec,        ///< decimal, one word
  Hex,        ///< hexadecimal, one word
  AdrConst,   ///< a label, one word
  CharConst,  ///< a character constant, one word per character
};

/// An operand of a DC.
template <class Char>
struct OprndAtDC {
  std::basic_string_view<Char> ConstStr;  ///< the cleaned text, with its quotes if it is a character constant
  ConstKind DataType = ConstKind::Const;
  int WordKazu = 0;  ///< words that it takes
  int Value = 0;     ///< the word of a constant of one word; only the low 16 bits count
  int AbAdr = 0;     ///< absolute address of its first word
};

/// The literal of a line.
template <class Char>
struct AdrConst {
  std::basic_string_view<Char> ConstStr;  ///< the text after the equal sign
  ConstKind DataType = ConstKind::Const;
  int WordKazu = 0;  ///< 1 for a number, else the number of characters
  int Value = 0;     ///< the word of a number; only the low 16 bits count
  int AbAdr = 0;     ///< 0 until the first run of the address pass has placed it
};

/// A line with a statement.  Lines of blanks and comment lines have no record.  All texts are views into
/// the store; a text that a stage changes is a new view.
template <class Char>
struct SrcData {
  using View = std::basic_string_view<Char>;

  /// Operand buffers: 0 the operand text, 1 to 4 the operands, each with its trailing comma as
  /// extracted.  A view without data is "no buffer", which is not the same as an empty one.
  static constexpr std::size_t kOprnds = 5;

  View SrcStr;       ///< the line as loaded, without its line end
  View SrcWork;      ///< the working text: the normalised line first, the operand text later
  View LabelStr;     ///< empty if the line begins with a blank
  View OpStr;        ///< the opcode word as written
  View OprndComStr;  ///< operands, and the comment until it is removed
  std::array<View, kOprnds> Oprnd{};

  std::int32_t Line = 0;        ///< 0-based index of the line in the file
  std::int32_t PrgNr = 0;       ///< index of its program
  std::int32_t RelAdr = 0;      ///< address of the first word, relative to the program; nothing shows it
  std::int32_t AbAdr = 0;       ///< absolute address of the first word
  std::int32_t word_kazu = 0;   ///< number of words of the line
  std::int32_t Word1 = 0;       ///< first word; on an IN or OUT line the address of its first operand
  std::int32_t Word2 = 0;       ///< second word; on an IN or OUT line the address of its second operand
  std::int32_t DcFirst = 0;     ///< first element of the line in vecOprndAtDC of the store ...
  std::int32_t DcCount = 0;     ///< ... and how many there are
  std::int32_t LiteralNr = -1;  ///< element of the line in vecAdrConst of the store, -1 for none
  std::int16_t OpNr = -1;       ///< row of the instruction table, -1 before recognition
  bool IsLabelInUse = false;    ///< some operand of the file names the label of this line

  bool hasOprnd(std::size_t n) const { return Oprnd[n].data() != nullptr; }
};

/// A program: one pair of START and END.
template <class Char>
struct PrgData {
  using View = std::basic_string_view<Char>;

  int StartLine = 0;            ///< 0-based line index of the START
  int EndLine = 0;              ///< 0-based line index of the END; nothing shows it
  int RecStart = 0;             ///< record of the START line in vecSrc
  int RecEnd = 0;               ///< record of the END line in vecSrc
  View PrgName;                 ///< the label of the START
  bool IsPrgNameInUse = false;  ///< some line of another program names this program
  int PrgSize = 0;              ///< words, literals included
  int AbAdrAtStart = 0;         ///< absolute address of the first word
  int AbAdrAfterCode = 0;  ///< absolute address after the last line, before the literals; nothing shows it
  int AbAdrAtEnd = 0;      ///< absolute address of the last word
  /// Label to the record of the first line, START included and END excluded, that carries it.
  NameTable<Char> Labels;

  /// The record of the line with that label, or -1.
  int findLabel(View label) const { return Labels.find(label); }
};

using SrcDataW = SrcData<char16_t>;
using SrcDataA = SrcData<char>;
using PrgDataW = PrgData<char16_t>;
using PrgDataA = PrgData<char>;

}  // namespace zelvaro
