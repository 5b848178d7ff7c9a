#include "source/NarrowText.h"

namespace zelvaro {

bool OpenFileA(Assembly& a, const std::string& name, const SourceBytes& bytes) {
  if (!reportNarrowReading(a, name, bytes)) return false;
  LineStore<char>& store = a.b.vecSrcA;
  store.clear();
  const std::size_t size = bytes->bytes.size();
  for (NarrowLines lines(a.sh, bytes->bytes); !lines.atEnd();) {
    const std::string_view text = lines.next();
    store.addLine(holdsStatement(text) ? store.arena.keep(text) : std::string_view());
    store.foresee(size - lines.left(), size);
  }
  return true;
}

}  // namespace zelvaro
