// The load stage of pipeline NaW: the narrow loader, whose lines are converted to wide text.
#include "MoziCode/Cp932.h"
#include "source/Load.h"

namespace zelvaro {

bool loadWidened(Assembly& a, const LoadRequest& request) {
  if (!loadNarrow(a, request)) return false;
  LineStore<char>& narrow = a.b.vecSrcA;
  LineStore<char16_t>& wide = a.b.vecSrcW;
  wide.clear();
  std::u16string text;
  for (const SrcDataA& line : narrow.lines()) {
    while (wide.lineCount() < line.Line) wide.addLine({});
    text.clear();
    cp932ToUtf16(line.SrcStr, text);
    wide.addLine(wide.arena.keep(text));
  }
  while (wide.lineCount() < narrow.lineCount()) wide.addLine({});
  narrow.clear();
  return true;
}

}  // namespace zelvaro
