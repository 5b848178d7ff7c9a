// What a stage of the assembler may use: the objects with the store, the tallies and the state of the checks.
// It has no access to the machine, the settings and the outside world.
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
