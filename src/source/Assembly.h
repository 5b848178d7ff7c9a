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
  const Family& family;

  template <class Char>
  LineStore<Char>& store() const {
    return b.store<Char>();
  }
  template <class Char>
  PrgData<Char>& program(int prg) const {
    return store<Char>().vecPrg[static_cast<std::size_t>(prg)];
  }
  /// The Errors counted by all objects.
  int errors() const { return sh.ErrorKazu + cs.ErrorKazu + b.ErrorKazu; }
};

}  // namespace zelvaro
