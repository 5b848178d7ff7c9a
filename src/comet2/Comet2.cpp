#include "comet2/Comet2.h"

#include <algorithm>
#include <cmath>

namespace zelvaro {

Tcomet2::Tcomet2() { reset(); }

void Tcomet2::reset() {
  Memory.assign(kMemoryCells, 0);
  ExecCount.assign(kMemoryCells, 0);
  LineOfAddress.assign(kMemoryCells, -1);
  StackArea.fill(0);
  GR.fill(0);
  OS = PR = EffAdr = LastAdr = MaxExecCount = ExecCountDigits = 0;
  SP = kFirstSP;
  Fovf = Fsign = Fzero = 0;
  Filename.clear();
}

void Tcomet2::setMaxExecCount() {
  MaxExecCount = *std::max_element(ExecCount.begin(), ExecCount.begin() + kGreatestImage);
  ExecCountDigits = MaxExecCount > 0 ? static_cast<std::int32_t>(std::lround(std::log10(MaxExecCount))) : 0;
}

}  // namespace zelvaro
