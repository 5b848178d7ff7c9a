// The load of pipeline NaW: the narrow loader, and its lines as wide text.
#include "MoziCode/Cp932.h"
#include "source/Load.h"

namespace zelvaro {

int loadWidened(Assembly& a, MoziCodeData&, const std::string& name, int) {
  FileFailure failure;
  const SourceBytes bytes = a.sh.console().loadFile(nativePath(name), &failure);
  if (!bytes && tellRefusal(a.sh, name, failure)) return kNotLoaded;
  const int result = OpenFileA(a, name, bytes);
  if (result != 0) return result;
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
  return 0;
}

}  // namespace zelvaro
