// Two sessions on two threads share nothing that is written.  Run under the thread sanitizer.
#include <gtest/gtest.h>

#include <thread>

#include "MoziCode/Cp932.h"
#include "MoziCode/Utf.h"
#include "support/Dialogue.h"

namespace zelvaro::test {
namespace {

/// Faulty and runnable sources, wide and narrow, in one language, and text to and from CP932.
std::string work(const std::string& language) {
  std::string out;
  for (const std::string pipeline : {"WP", "NaW", "AP", "NH"}) {
    for (const std::string source :
         {"MAIN START\n OUT TEXT,LEN\n RET\nTEXT DC 'あソ''A'\nLEN DC 4\n END\n",
          "MAIN START\nabc LD GR8,#12\n FOO 表\n DC 70000,'\n END\n", "A START\n POP GR1\n END\n"}) {
      Dialogue d;
      out += d.assemble(kMark8 + source, pipeline, {"", "2", "9", "2"}, language);
      for (const auto& [name, bytes] : d.platform.files) out += name + "\n" + bytes;
    }
    out += toUtf8(cp932ToUtf16(utf16ToCp932(u"ソ①～―" + toUtf16(pipeline))));
  }
  return out;
}

TEST(Threads, TwoSessionsAtOnceShowWhatEachShowsAlone) {
  const std::string alone[] = {work("JPN"), work("ENU")};
  std::string first, second;
  std::thread thread([&] { first = work("JPN"); });
  second = work("ENU");
  thread.join();
  EXPECT_EQ(first, alone[0]);
  EXPECT_EQ(second, alone[1]);
  EXPECT_NE(alone[0], alone[1]);
}

}  // namespace
}  // namespace zelvaro::test
