// The limits of the fixed form.  Its store is the narrow one, which grows with the file: each limit is
// enforced by the stage in which it shows.
#pragma once

#include <cstddef>

#include "diag/Family.h"

namespace zelvaro {

/// The families of the fixed form.  A stage asks this where its rule is another one there.
template <class Family>
inline constexpr bool kIsFixedForm = Family::id == FamilyId::NH;

inline constexpr int kFixedLines = 310;              ///< lines of a file
inline constexpr std::size_t kFixedLineLength = 80;  ///< bytes of a line; what lies beyond is not read
inline constexpr std::size_t kFixedReadLength =
    104;                                          ///< bytes of a read, line end included, in 105 with its 0
inline constexpr std::size_t kFixedPrograms = 6;  ///< programs of a file
inline constexpr std::size_t kFixedNameLength = 14;  ///< bytes of a program's name
inline constexpr int kFixedDcOprnds = 20;            ///< operands of a DC line
inline constexpr int kFixedDcDsLines = 55;           ///< DC and DS lines of a program, a sixth of 330 lines
inline constexpr int MaxMemoryDCDS = 3500;           ///< words of the DC and DS lines of a program
inline constexpr int MaxMemoryLiteral = 300;         ///< words of the literals of a program
inline constexpr std::size_t kFixedOpLength = 5;     ///< characters of an opcode

}  // namespace zelvaro
