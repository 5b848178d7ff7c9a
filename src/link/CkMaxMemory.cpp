// CkMaxMemory: whether a program of the fixed form fits into its memory.
#include "link/Layout.h"
#include "link/Link.h"

namespace zelvaro {
namespace {

constexpr Message overDCDS{Severity::Error, Head::None, args("excess"),
                           bothLanguages("Prg Error: MaxMemoryDCDS < max_rl_memory_d\n"
                                         "Reduce your reserved DC and DS memory size　by {excess}. ")};
constexpr Message overLiteral{Severity::Error, Head::None, args("excess"),
                              bothLanguages("Prg Error: MaxMemoryLiteral < max_rl_memory_l\n"
                                            "Reduce Your litereal word size by {excess}. ")};
constexpr Message overMachine{Severity::Error,
                              Head::Line,
                              args("words"),
                              {.ja = "必要な全メモリ数は {words} 個です。 "
                                     "65536 個を超えるメモリ領域は確保できない。 ",
                               .en = "Your program needs {words} words in memory. "
                                     "The comet2 is a 16-bit machine. "
                                     "So it has 65536 words in all. "
                                     "More than 65537 words cannot be reserved. "}};
constexpr Message overMemory{
    Severity::Error,
    Head::Line,
    args("words"),
    {.ja = "必要なメモリ数は、少なくても {words} 個です。 "
           "しかし、このシミレータで用意されている全メモリ数は 3500 個（パソコンのメモリの節約のため ）なので"
           "制限をこえています。 必要なメモリ数が少なくなるように"
           "プログラムを修正してご利用ください。",
     .en = "Your program needs {words} words in memory. "
           "This simulator has only 3500 words for the sake of simplicity. "
           "So more than 3500 words cannot be assiged to your program. "
           "Reduce the memory size reserved on your source code. "}};

}  // namespace

template <class Family>
void ckMaxMemory(Assembly& a, int line, const FixedWords& words) {
  if (words.max_rl_memory_d > MaxMemoryDCDS)
    a.cs.report<Family, overDCDS>(line, words.max_rl_memory_d - MaxMemoryDCDS);
  if (words.max_rl_memory_l > MaxMemoryLiteral)
    a.cs.report<Family, overLiteral>(line, words.max_rl_memory_l - MaxMemoryLiteral);
  if (words.total() > kAddressSpace) {
    a.cs.report<Family, overMachine>(line, words.total());
  } else if (words.total() > MaxMemory) {
    a.cs.report<Family, overMemory>(line, words.total());
  }
}

template <class Family>
void CkMaxMemory(Assembly& a, int prg) {
  const PrgData<CharOf<Family>>& program = a.program<Family>(prg);
  ckMaxMemory<Family>(a, program.StartLine, fixedWords<Family>(a.store<Family>(), program));
}

#define ZELVARO_INSTANTIATE(F)                                     \
  template void ckMaxMemory<F>(Assembly&, int, const FixedWords&); \
  template void CkMaxMemory<F>(Assembly&, int);
ZELVARO_FAMILIES(ZELVARO_INSTANTIATE)

}  // namespace zelvaro
