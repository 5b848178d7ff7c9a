// What a stage of the assembler may touch: the objects that hold the store, the tallies and the state of
// the checks.  The machine, the settings and the outside world are out of its reach.
#pragma once

#include "source/BasicData.h"
#include "source/CorrectScode.h"
#include "source/ShellData.h"

namespace zelvaro {

struct Assembly {
  TShellData& sh;
  TCorrectScode& cs;
  TBasicData& b;

  template <class Family>
  LineStore<CharOf<Family>>& store() const {
    return b.store<CharOf<Family>>();
  }
  template <class Family>
  PrgData<CharOf<Family>>& program(int prg) const {
    return store<Family>().vecPrg[static_cast<std::size_t>(prg)];
  }
  /// The Errors counted by all objects.
  int errors() const { return sh.ErrorKazu + cs.ErrorKazu + b.ErrorKazu; }
};

}  // namespace zelvaro
