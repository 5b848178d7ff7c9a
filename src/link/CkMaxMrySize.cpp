// CkMaxMrySize: whether the image of all programs fits into the machine without the words of the stack.
#include <cstdint>

#include "diag/Limits.h"
#include "link/Link.h"

namespace zelvaro {
namespace {

// Both are in English for either language.
constexpr Message overAddressSpace{
    "image-over-addresses", Severity::Error, Head::Prefix, args("words", limit("most", kGreatestUnsigned)),
    bothLanguages(": Your program needs {words} words in memory. \n"
                  "More than {most} words cannot be reserved, because the come2 is a 16-bit machine. ")};
constexpr Message overStack{
    "image-over-stack", Severity::Error, Head::Prefix,
    args("words", limit("most", kGreatestImage), limit("stack", kStackDepth)),
    bothLanguages(
        ": Your program needs {words} words in memory. \n"
        "The comet2 is a 16-bit machine. So it has 65536 words in all. \n"
        "More than {most} words cannot be reserved, because {stack} words has been prereserved for Stack "
        "Area in comet2. ")};

// The fixed form has a smaller memory.
constexpr Message overMemory{
    "image-over-memory",
    Severity::Error,
    Head::Prefix,
    args("words", limit("most", MaxMemory)),
    {.ja =
         "必要な全メモリ数は {words} 個です。 "
         "しかし、このシミレータで用意されている全メモリ数は {most} 個（パソコンのメモリの節約のため*）なので"
         "制限をこえています。 工夫をしてご利用ください。",
     .en = "Your program needs all the {words} words in memory. "
           "This simulator has only {most} words in it. "
           "You should reduce the reserved memories by your program. "}};

}  // namespace

template <class Char>
void CkMaxMrySize(Assembly& a) {
  std::int64_t words = 0;
  for (const PrgData<Char>& program : a.store<Char>().vecPrg) words += program.PrgSize;
  if (words <= a.family.mostWords) return;
  if (a.family.mostWords < kGreatestImage) {
    a.b.report(overMemory, 0, words);
  } else if (words >= kAddressSpace) {
    a.b.report(overAddressSpace, 0, words);
  } else {
    a.b.report(overStack, 0, words);
  }
}

template void CkMaxMrySize<char16_t>(Assembly&);
template void CkMaxMrySize<char>(Assembly&);

RowList rowsOfCkMaxMrySize() {
  return rows(overAddressSpace, overStack, overMemory);
}

}  // namespace zelvaro
