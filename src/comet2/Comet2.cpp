#include "comet2/Comet2.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace zelvaro {

void Tcomet2::reset() {
  Memory.reset();
  ExecCount.reset();
  LineOfAddress.reset();
  StackArea.fill(0);
  GR.fill(0);
  OS = PR = EffAdr = LastAdr = MaxExecCount = ExecCountDigits = 0;
  SP = kFirstSP;
  Fovf = Fsign = Fzero = 0;
  Filename.clear();
}

void Tcomet2::setMaxExecCount() {
  const std::size_t end = std::min<std::size_t>(kGreatestImage, ExecCount.touched());
  MaxExecCount = 0;
  for (std::size_t adr = 0; adr < end; ++adr)
    MaxExecCount = std::max(MaxExecCount, std::as_const(ExecCount)[adr]);
  ExecCountDigits = MaxExecCount > 0 ? static_cast<std::int32_t>(std::lround(std::log10(MaxExecCount))) : 0;
}

}  // namespace zelvaro
