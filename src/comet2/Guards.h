// The guards of the virtual OS: what a run says when it stops, and the watch over indexed stores.
#pragma once

#include <cstdint>

#include "comet2/Comet2.h"
#include "comet2/Run.h"

namespace zelvaro {

/// Why a run has stopped.  PR and all else stand in the machine as the stop has left them.
enum class Stop : std::uint8_t {
  End,           ///< the top-level RET, EXIT, or PR above 65535
  Pr,            ///< PR above the limit
  Register,      ///< a word that names a register above 7
  Load,          ///< a load beyond the limit
  Store,         ///< an indexed store beyond the limit; its words have been printed
  Stack,         ///< a PUSH or CALL with the stack full
  EmptyStack,    ///< a POP with the stack empty
  Return,        ///< a RET with OS above 0 and SP above #FFFF
  Nop,           ///< a NOP that is not the word 0
  Unregistered,  ///< a word that is no instruction
  InputEnded,    ///< IN has found the end of an input that is no terminal kMostEmptyInputs times in a row
  NobodyThere,   ///< nobody follows the console any more
  Steps          ///< the number of steps asked for is reached
};

/// Asked about every indexed store at or above `from()`.
class StoreWatch {
 public:
  virtual ~StoreWatch() = default;
  /// The store guard and the store warning, for an ST whose second word PR is on and which has been executed
  /// `count` times.  Whether the store is to be carried out; else the run must stop.
  virtual bool st511(Tcomet2& m, std::int32_t effAdr, std::int32_t count) = 0;
  std::int32_t from() const { return from_; }

 protected:
  explicit StoreWatch(std::int32_t from) : from_(from) {}
  std::int32_t from_;
};

/// The guard of a pipeline: its limit, and the words of its family.
class GuardedStores : public StoreWatch {
 public:
  GuardedStores(const Tcomet2& m, const RunEnvironment& env);
  bool st511(Tcomet2& m, std::int32_t effAdr, std::int32_t count) override;

 private:
  const RunEnvironment& env_;
};

/// Says the words of a stop, without the end words and the run time that may follow.
void reportStop(Stop stop, const Tcomet2& m, DiagSink& sink);

}  // namespace zelvaro
