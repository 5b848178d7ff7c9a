// The fixed form: what its run makes of an image, and its limits.  The order of its words is in
// tests/transcripts/fixed.transcript.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "whole/Dialogue.h"

namespace zelvaro::test {
namespace {

using ::testing::HasSubstr;

/// Assembles and runs a source in pipeline NH.
struct Fixed {
  Dialogue d;
  std::string shown;

  explicit Fixed(const std::string& source) {
    d.platform.files["a.txt"] = source;
    d.platform.files["zelvaro.ini"] = "[Mode]\nLangStr=ENU\nFightFunc=NH\n";
    shown = d.run({"", "1", "a.txt", "1"});
  }
  Tcomet2& m() { return d.session().m; }
};

TEST(FixedForm, EXITEndsTheRunInsideASubroutine) {
  Fixed f("MAIN START\n CALL SUB\n LAD GR1,9\n RET\nSUB EXIT\n END\n");
  EXPECT_EQ(f.m().Memory[6], 0x8800);
  EXPECT_EQ(f.m().PR, 6);
  EXPECT_EQ(f.m().OS, 1);
  EXPECT_EQ(f.m().GR[1], 0);
  EXPECT_THAT(f.shown, HasSubstr("and it has come to an end of the program\n"));
}

TEST(FixedForm, BytesOfACommentAreNotLookedAt) {
  Fixed sjis("MAIN START ; \xFF\n RET\nA DC '\x82\xA0'\n END\n");
  EXPECT_EQ(sjis.m().Memory[2], 0x3042);
  EXPECT_THAT(sjis.shown, ::testing::Not(HasSubstr("Error")));
}

TEST(FixedForm, AStoreBehindTheImageIsToldAndMovesItsEnd) {
  Fixed f("MAIN START\n LAD GR1,20\n ST GR1,0,GR1\n RET\n END\n");
  EXPECT_THAT(f.shown,
              HasSubstr("WARNING: Your reserved memory size is 6 words. A data has stored beyond the "
                        "reserved area. The address is 20(dec) in memory. "));
  EXPECT_EQ(f.m().LastAdr, 20);
  EXPECT_THAT(f.d.platform.files["aaAssembledRegMry.txt"], HasSubstr("#000F:   15:"));
  EXPECT_THAT(f.d.platform.files["aaAssembledRegMry.txt"], ::testing::Not(HasSubstr("#0010:   16:")));
  EXPECT_THAT(f.d.platform.files["aaResultantRegMry.txt"], HasSubstr("#001D:   29:"));
}

TEST(FixedForm, AStoreAtTheLimitStopsTheRun) {
  for (const int at : {3499, 3500}) {
    Fixed f("MAIN START\n LAD GR1," + std::to_string(at) + "\n ST GR1,0,GR1\n LAD GR2,1\n RET\n END\n");
    EXPECT_EQ(f.m().Memory[static_cast<std::size_t>(at)], at == 3499 ? 3499 : 0);
    EXPECT_EQ(f.m().GR[2], at == 3499 ? 1 : 0);
    EXPECT_EQ(f.shown.find("This simulator have only 3465 words") == std::string::npos, at == 3499);
  }
}

}  // namespace
}  // namespace zelvaro::test
