#include "source/BasicData.h"

namespace zelvaro {
namespace {

constexpr Message editorCorrected = notice("self-editor-corrected", args(),
                                           bothLanguages("PrgError: index < 0 || 2 < index\n"
                                                         "The index was corrected to be zero.\n"
                                                         "TBasicData::SetTextEdIndex(int)\n"));

}  // namespace

void TBasicData::SetTextEdIndex(int index) {
  if (index < 0 || index > 2) {
    say(editorCorrected);
    index = 0;
  }
  textEditorIndex_ = index;
}

RowList rowsOfBasicData() {
  return rows(editorCorrected);
}

}  // namespace zelvaro
