// The services of the virtual OS: what SVC does.
#pragma once

#include "comet2/Comet2.h"
#include "comet2/Stop.h"
#include "diag/Diagnostic.h"
#include "platform/Platform.h"

namespace zelvaro {

inline constexpr std::int32_t kSvcIn = 1;
inline constexpr std::int32_t kSvcOut = 2;

inline constexpr int kMostEmptyInputs = 100;  ///< the run stops when as many IN calls in a row find no line
inline constexpr int kNoLine = -1;            ///< result of SvcIn at an input that has ended for good

/// Decides before each SVC whether it is executed: for a run that does not wait for its input.
class ServiceGate {
 public:
  virtual ~ServiceGate() = default;
  /// Stop::End if the service is executed; otherwise why the run stops before the SVC, Stop::InputWanted or a
  /// later one.
  virtual Stop before(std::int32_t number) = 0;
};

/// What the services need in addition to the machine.
struct Services {
  Platform& platform;           ///< where IN reads and OUT writes
  DiagSink& sink;               ///< receives the messages around the input and output
  ServiceGate* gate = nullptr;  ///< null: every service is executed
};

/// Executes an SVC: 1 is SvcIn, 2 SvcOut, any other number reports a Note.  No service changes a register, a
/// flag, PR or SP.  Returns the result of SvcIn, 0 for any other service.
int SvcCall(Tcomet2& m, const Services& services, std::int32_t number);

/// Reads one line into `Memory`: its length is stored at the address in GR2, its characters, one UTF-16 code
/// unit per word, from the address in GR1 upward.  Addresses wrap at 16 bits.  Returns the number of
/// characters, or kNoLine, with a length of 0 stored, if the input is not a terminal and has ended.
int SvcIn(Tcomet2& m, const Services& services);

/// Prints words from the address in GR1 upward as UTF-16; the cell at the address in GR2 holds their number.
void SvcOut(const Tcomet2& m, const Services& services);

}  // namespace zelvaro
