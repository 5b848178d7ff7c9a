// Every limit of the language, of the machine and of the fixed form, once.  Messages take them as arguments.
#pragma once

#include <cstddef>

namespace zelvaro {

// --- the language ---
inline constexpr int kLabelLength = 8;        ///< longest label, in characters
inline constexpr int kMostRegister = 7;       ///< GR0 to GR7
inline constexpr std::size_t kHexDigits = 4;  ///< digits of a hexadecimal constant
inline constexpr int kLeastSigned = -32768;
inline constexpr int kGreatestSigned = 32767;
inline constexpr int kGreatestUnsigned = 65535;

inline constexpr std::size_t kOprndLengthRead = 225;  ///< characters of an operand text in a fixed buffer

// --- the machine ---
inline constexpr int kAddressSpace = 65536;    ///< addresses
inline constexpr int tMaxMemory = 65000;       ///< limit of a run in all pipelines but NH
inline constexpr int MaxMemory = 3500;         ///< the same in pipeline NH, and words of its image
inline constexpr int kStackDepth = 500;        ///< words of the stack; the lowest SP in use is #FE0B
inline constexpr int kGreatestImage = 65035;   ///< words of the greatest image that links (#FE0B)
inline constexpr int kMostBytesOfInput = 256;  ///< bytes of a line that IN reads

// --- the fixed form ---
inline constexpr int kFixedLines = 310;              ///< lines of a file
inline constexpr std::size_t kFixedLineLength = 80;  ///< bytes of a line; the rest is ignored
/// Bytes of one read, line end included: a buffer of 105 bytes without its terminator.
inline constexpr std::size_t kFixedReadLength = 104;
inline constexpr std::size_t kFixedPrograms = 6;     ///< programs of a file
inline constexpr std::size_t kFixedNameLength = 14;  ///< bytes of a program's name
inline constexpr std::size_t kFixedDcOprnds = 20;    ///< operands of a DC line
inline constexpr int kFixedDcDsLines = 55;           ///< DC and DS lines of a program, a sixth of 330 lines
inline constexpr int MaxMemoryDCDS = 3500;           ///< words of the DC and DS lines of a program
inline constexpr int MaxMemoryLiteral = 300;         ///< words of the literals of a program
inline constexpr std::size_t kFixedOpLength = 5;     ///< characters of an opcode

}  // namespace zelvaro
