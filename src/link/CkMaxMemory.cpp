// CkMaxMemory: whether a program of the fixed form fits into its memory.
#include "diag/Limits.h"
#include "link/Layout.h"
#include "link/Link.h"

namespace zelvaro {
namespace {

constexpr Message overDCDS{"memory-data", Severity::Error, Head::None, args("excess"),
                           bothLanguages("Prg Error: MaxMemoryDCDS < max_rl_memory_d\n"
                                         "Reduce your reserved DC and DS memory size　by {excess}. ")};
constexpr Message overLiteral{"memory-literals", Severity::Error, Head::None, args("excess"),
                              bothLanguages("Prg Error: MaxMemoryLiteral < max_rl_memory_l\n"
                                            "Reduce Your litereal word size by {excess}. ")};
constexpr Message overMachine{"memory-machine",
                              Severity::Error,
                              Head::Line,
                              args("words", limit("most", kAddressSpace), limit("more", kAddressSpace + 1)),
                              {.ja = "必要な全メモリ数は {words} 個です。 "
                                     "{most} 個を超えるメモリ領域は確保できない。 ",
                               .en = "Your program needs {words} words in memory. "
                                     "The comet2 is a 16-bit machine. "
                                     "So it has {most} words in all. "
                                     "More than {more} words cannot be reserved. "}};
constexpr Message overMemory{
    "memory-program",
    Severity::Error,
    Head::Line,
    args("words", limit("most", MaxMemory)),
    {.ja =
         "必要なメモリ数は、少なくても {words} 個です。 "
         "しかし、このシミレータで用意されている全メモリ数は {most} 個（パソコンのメモリの節約のため ）なので"
         "制限をこえています。 必要なメモリ数が少なくなるように"
         "プログラムを修正してご利用ください。",
     .en = "Your program needs {words} words in memory. "
           "This simulator has only {most} words for the sake of simplicity. "
           "So more than {most} words cannot be assiged to your program. "
           "Reduce the memory size reserved on your source code. "}};

}  // namespace

void ckMaxMemory(Assembly& a, int line, const FixedWords& words) {
  if (words.max_rl_memory_d > MaxMemoryDCDS)
    a.cs.report(overDCDS, line, words.max_rl_memory_d - MaxMemoryDCDS);
  if (words.max_rl_memory_l > MaxMemoryLiteral)
    a.cs.report(overLiteral, line, words.max_rl_memory_l - MaxMemoryLiteral);
  if (words.total() > kAddressSpace) {
    a.cs.report(overMachine, line, words.total());
  } else if (words.total() > MaxMemory) {
    a.cs.report(overMemory, line, words.total());
  }
}

template <class Char>
void CkMaxMemory(Assembly& a, int prg) {
  const PrgData<Char>& program = a.program<Char>(prg);
  ckMaxMemory(a, program.StartLine, fixedWords(a.store<Char>(), program));
}

template void CkMaxMemory<char16_t>(Assembly&, int);
template void CkMaxMemory<char>(Assembly&, int);

RowList rowsOfCkMaxMemory() {
  return rows(overDCDS, overLiteral, overMachine, overMemory);
}

}  // namespace zelvaro
