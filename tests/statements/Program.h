// One program in memory, driven through the statement analysis.
#pragma once

#include <gtest/gtest.h>

#include "statements/Statements.h"
#include "structure/Source.h"

namespace zelvaro::test {

template <class Family>
class Program : public Source<Family> {
 public:
  /// Takes the lines between START and END, or a whole source if the text holds a START.
  explicit Program(std::string lines, int lang = kEnglish)
      : Source<Family>(lines.find(" START") != lines.npos ? lines : "MAIN START\n" + lines + "\n END\n",
                       lang) {
    EXPECT_TRUE(this->structure()) << this->platform.console;
    this->platform.console.clear();
  }
  /// The first program's stages as far as the operands are taken apart.
  Program& extract() {
    EXPECT_TRUE(this->program(0)) << this->platform.console;
    EXPECT_EQ(CkOpStr<Family>(this->a, 0), 0) << this->platform.console;
    CopyOprndComStrToBuffer<Family>(this->a, 0);
    operand20m15<Family>(this->a, 0);
    return *this;
  }
  int loop() { return OpCkLoop<Family>(this->a); }
  const std::string& said() const { return this->platform.console; }
  /// The record of the first line behind START.
  SrcData<CharOf<Family>>& line() { return this->store()[1]; }
  /// The four operands, each with a bar behind it.
  std::string oprnds() {
    std::string out;
    for (std::size_t n = 1; n < line().Oprnd.size(); ++n) out += plain(line().Oprnd[n]) + "|";
    return out;
  }
};

}  // namespace zelvaro::test
