// Link31: the link of all programs of the file, and the filling of the machine.
#include "data/Data.h"
#include "diag/Limits.h"
#include "diag/Quote.h"
#include "link/Layout.h"
#include "link/Link.h"
#include "link/SetMemory10.h"

namespace zelvaro {
namespace {

constexpr Message overMemory{"linker-memory", Severity::Error, Head::None, args(limit("most", MaxMemory)),
                             bothLanguages("Linker Error: Your reserved memory size"
                                           "has exceeded MaxMemory(={most}).\n"
                                           "Rewrite your casl2 program a little "
                                           "and reduce the reserved memory size. ")};

bool stopsAfterStep(const Assembly& a) {
  return a.family.linkTest == LinkTest::AfterEachStep && a.errors() > 0;
}

/// Constants and addresses once more, now that every label is known.  False after an Error.
template <class Char>
bool settleAddresses(Assembly& a, int programs) {
  for (int prg = 0; prg < programs; ++prg) {
    SetMryInAtDC<Char>(a, prg);
    if (stopsAfterStep(a)) return false;
  }
  for (int prg = 0; prg < programs; ++prg) {
    AdrCk53<Char>(a, prg);
    if (a.errors() > 0) return false;
  }
  if (programs > 0) a.program<Char>(0).AbAdrAtStart = 0;
  CkMaxMrySize<Char>(a);
  return a.errors() == 0;
}

/// The fixed form has all addresses except those of programs that come after the line that names them.
template <class Char>
void settlePrgNames(Assembly& a, int prg) {
  LineStore<Char>& store = a.store<Char>();
  const PrgData<Char>& program = a.program<Char>(prg);
  for (SrcData<Char>& line : store.linesBeforeEnd(program)) {
    const Op op = opOf(line);
    if (op == Op::Unknown || instruction(op).opClass != OpClass::Machine || line.word_kazu != 2) continue;
    const ViewOf<Char> name = line.Oprnd[static_cast<std::size_t>(addressOprnd(instruction(op)))];
    const int later = store.findPrg(name, prg);
    if (later > prg && program.findLabel(name) < 0) line.Word2 = a.program<Char>(later).AbAdrAtStart;
  }
}

}  // namespace

template <class Char>
void Link31(Assembly& a, Tcomet2& m) {
  const auto& prgs = a.store<Char>().vecPrg;
  const int programs = static_cast<int>(prgs.size());
  if (a.family.dataPlace == DataPlace::AfterCode) {
    for (int prg = 0; prg < programs; ++prg) settlePrgNames<Char>(a, prg);
  } else if (!settleAddresses<Char>(a, programs)) {
    return;
  }
  SetLineOfAddress<Char>(a, m);
  for (int prg = 0; prg < programs; ++prg) {
    if (!SetMemory10<Char>(a, m, prg)) {
      if (a.family.dataPlace == DataPlace::AfterCode) a.cs.report(overMemory, 0);
      return;
    }
    if (stopsAfterStep(a)) return;
  }
  if (!prgs.empty()) a.b.FirstPrgName = plain(prgs.front().PrgName);
}

template void Link31<char16_t>(Assembly&, Tcomet2&);
template void Link31<char>(Assembly&, Tcomet2&);

RowList rowsOfLink31() {
  return rows(overMemory);
}

}  // namespace zelvaro
