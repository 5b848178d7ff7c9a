// CkMaxMrySize: whether the image of all programs fits into the machine, the stack's words left free.
#include <cstdint>

#include "link/Link.h"

namespace zelvaro {
namespace {

// Both are told in English whatever the language.
constexpr Message overAddressSpace{
    Severity::Error, Head::Prefix, args("words"),
    bothLanguages(": Your program needs {words} words in memory. \n"
                  "More than 65535 words cannot be reserved, because the come2 is a 16-bit machine. ")};
constexpr Message overStack{
    Severity::Error, Head::Prefix, args("words"),
    bothLanguages(
        ": Your program needs {words} words in memory. \n"
        "The comet2 is a 16-bit machine. So it has 65536 words in all. \n"
        "More than 65035 words cannot be reserved, because 500 words has been prereserved for Stack "
        "Area in comet2. ")};

}  // namespace

template <class Family>
int CkMaxMrySize(Assembly& a) {
  std::int64_t words = 0;
  for (const PrgData<CharOf<Family>>& program : a.store<Family>().vecPrg) words += program.PrgSize;
  if (words <= kGreatestImage) return 0;
  if (words >= kAddressSpace) {
    a.b.report<Family, overAddressSpace>(0, words);
  } else {
    a.b.report<Family, overStack>(0, words);
  }
  return -2;
}

#define ZELVARO_INSTANTIATE(F) template int CkMaxMrySize<F>(Assembly&);
ZELVARO_FAMILIES(ZELVARO_INSTANTIATE)

}  // namespace zelvaro
