#include "source/BasicData.h"

namespace zelvaro {

void TBasicData::SetTextEdIndex(int index) {
  if (index < 0 || index > 2) {
    print("PrgError: index < 0 || 2 < index\n");
    print("The index was corrected to be zero.\n");
    print("TBasicData::SetTextEdIndex(int)\n");
    index = 0;
  }
  textEditorIndex_ = index;
}

}  // namespace zelvaro
