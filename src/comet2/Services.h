// The services of the virtual OS round the machine: what SVC does.
#pragma once

#include "comet2/Comet2.h"
#include "diag/Diagnostic.h"
#include "platform/Platform.h"

namespace zelvaro {

inline constexpr std::int32_t kSvcIn = 1;
inline constexpr std::int32_t kSvcOut = 2;

inline constexpr int kMostEmptyInputs = 100;  ///< ends of the input in a row that IN takes for lines
inline constexpr int kNoLine = -1;            ///< result of SvcIn at an input that has ended for good

/// What the services work with.
struct Services {
  Platform& platform;  ///< where IN reads and OUT writes
  DiagSink& sink;      ///< takes the words round them
};

/// Answers an SVC: 1 is SvcIn, 2 SvcOut, any other number prints a note.  No service changes a register, a
/// flag, PR or SP.  Returns what SvcIn has returned, 0 for any other service.
int SvcCall(Tcomet2& m, const Services& services, std::int32_t number);

/// Reads one line into `Memory`: its length goes to the address in GR2, its characters, a UTF-16 unit a word,
/// from the address in GR1 upward.  Addresses wrap at 16 bits.  Returns the number of characters, or kNoLine,
/// with a length of 0 stored, where no terminal is read and there is no line any more.
int SvcIn(Tcomet2& m, const Services& services);

/// Prints as many words from the address in GR1 as the cell at the address in GR2 says, as UTF-16.
void SvcOut(const Tcomet2& m, const Services& services);

}  // namespace zelvaro
