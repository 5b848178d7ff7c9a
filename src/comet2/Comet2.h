// Tcomet2, the simulated COMET2: memory, registers, flags, stack.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "comet2/Cells.h"
#include "diag/Limits.h"

namespace zelvaro {

inline constexpr int kFirstSP = 0xFFFF;     ///< SP of an empty stack
inline constexpr int kMemoryCells = 65635;  ///< cells of Memory, more than addresses
inline constexpr int kLinesKnown = 65036;   ///< LineOfAddress has entries below this address (#FE0C)

/// The machine.  Cells and registers are 32-bit integers, of which the low 16 bits are the word.
class Tcomet2 {
 public:
  /// Resets everything to the state before a link.
  void reset();

  std::int32_t OS = 0;                    ///< nesting depth of CALL
  Cells Memory{kMemoryCells, 0};          ///< the main memory
  Cells ExecCount{kMemoryCells, 0};       ///< fetches of each address
  std::int32_t MaxExecCount = 0;          ///< the greatest ExecCount, computed after the run
  std::int32_t ExecCountDigits = 0;       ///< its decimal logarithm, rounded
  Cells LineOfAddress{kMemoryCells, -1};  ///< 0-based source line of each address, -1 for none
  std::int32_t LastAdr = 0;               ///< words of the image, for pipeline NH
  std::array<std::int32_t, kStackDepth + 1> StackArea{};  ///< the word for SP = s lies at #FFFF - s
  std::array<std::int32_t, 8> GR{};
  std::int32_t PR = 0;      ///< program register; may exceed 16 bits
  std::int32_t EffAdr = 0;  ///< the last effective address, 0 to 65535
  std::int32_t SP = kFirstSP;
  std::int32_t Fovf = 0, Fsign = 0, Fzero = 0;  ///< 0 or 1
  std::string Filename;                         ///< the first program's name, UTF-8

  /// Computes MaxExecCount and ExecCountDigits.
  void setMaxExecCount();
};

/// The word that a cell or register holds, read as unsigned and as signed.
constexpr std::int32_t unsignedWord(std::int32_t v) {
  return v & 0xFFFF;
}
constexpr std::int32_t signedWord(std::int32_t v) {
  return static_cast<std::int16_t>(v & 0xFFFF);
}

}  // namespace zelvaro
