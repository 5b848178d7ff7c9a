// Why a run has stopped.
#pragma once

#include <cstdint>

namespace zelvaro {

/// Why a run has stopped.  PR and all other fields of the machine keep their values at the stop.
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
  Steps,         ///< the requested number of steps is reached
  // The following ones stop before the instruction at PR, which is not counted.
  Breakpoint,      ///< the instruction at PR has a breakpoint
  InputWanted,     ///< an IN for which no line is there yet
  InputExhausted,  ///< an IN after the end of the input
  OutputFull       ///< an SVC after as much output as the run may keep
};

/// Whether the instruction at PR has not been executed and goes on with the next call.
constexpr bool stopsBeforeInstruction(Stop stop) {
  return stop >= Stop::Breakpoint;
}

}  // namespace zelvaro
