#include "source/Load.h"

#include <type_traits>

#include "source/FixedForm.h"

namespace zelvaro {

template <class Family>
int loadSource(Assembly& a, MoziCodeData& code, const std::string& name, int simpleTitleIndex) {
  const SourceBytes bytes = a.sh.console().loadFile(nativePath(name));
  if constexpr (kIsFixedForm<Family>) {
    return OpenFileChH(a, name, bytes);
  } else if constexpr (std::is_same_v<CharOf<Family>, char>) {
    return OpenFileA(a, name, bytes);
  } else {
    DetectEncoding(a.sh, code, name, bytes, simpleTitleIndex);
    const bool utf16 = code.CodePage == 1200 || code.CodePage == 1201;
    return utf16 ? OpenFileUTF16toVecW(a, code, name, bytes) : OpenFileUTF8toVecW(a, code, name, bytes);
  }
}

#define ZELVARO_INSTANTIATE(F) template int loadSource<F>(Assembly&, MoziCodeData&, const std::string&, int);
ZELVARO_FAMILIES(ZELVARO_INSTANTIATE)

}  // namespace zelvaro
