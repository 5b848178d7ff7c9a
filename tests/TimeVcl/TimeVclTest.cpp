// Clocks, and spans at their edges.  Stamps and time lines are in tests/transcripts/timing.transcript.
#include <gtest/gtest.h>

#include "TimeVcl/TimeVcl.h"
#include "support/ScriptedPlatform.h"

namespace zelvaro {
namespace {

TEST(TimeData, ClocksByNameAndNumber) {
  struct Case {
    const char* name;
    int index;
  };
  for (const Case& c : {Case{"QPC", 0}, {"std::chrono", 1}, {"std::clock()", 2}, {"qpc", 1}, {"", 1}}) {
    TimeData t;
    t.SetClockByName(c.name);
    EXPECT_EQ(t.ClockName, c.name);
    EXPECT_EQ(t.ClockIndex, c.index) << c.name;
  }
  for (const Case& c :
       {Case{"QPC", 0}, {"std::chrono", 1}, {"std::clock()", 2}, {"std::chrono", 3}, {"std::chrono", -1}}) {
    TimeData t;
    t.SetClockByIndex(c.index);
    EXPECT_EQ(t.ClockName, c.name);
    EXPECT_EQ(t.ClockIndex, c.index == 0 || c.index == 2 ? c.index : 1);
  }
  TimeData t;  // the settings read the name first, the number last
  t.SetClockByName("std::clock()");
  t.SetClockByIndex(1);
  EXPECT_EQ(t.ClockName, "std::chrono");
}

/// A counter whose frequency is a test's choice.
class Counter : public test::ScriptedPlatform {
 public:
  std::int64_t frequency = 1'000'000;
  std::int64_t performanceFrequency() override { return frequency; }
};

struct SpanCase {
  std::int64_t difference;
  const char *text, *plain;
};

void expectSpans(int clock, std::initializer_list<SpanCase> cases, std::int64_t frequency = 1'000'000) {
  Counter platform;
  platform.frequency = frequency;
  for (const SpanCase& c : cases) {
    TimeData t;
    t.SetClockByIndex(clock);
    t.StampQPC[5] = 7 + c.difference;
    t.StampQPC[4] = 7;
    t.StampChrono[5] = 7 + c.difference;
    t.StampChrono[4] = 7;
    t.StampClock[5] = static_cast<std::int32_t>(7 + c.difference);
    t.StampClock[4] = 7;
    EXPECT_EQ(DetTimeDiff_General(t, platform, "RunTime"), c.text);
    EXPECT_EQ(DetTimeDiff_MilliSecStr_General(t, platform, "RunTime"), c.plain);
  }
  EXPECT_EQ(platform.console, "");
}

TEST(Spans, QPC) {
  expectSpans(0, {{0, "1 micro second or less", "0.0"},
                  {999, "1 micro second or less", "0.9"},
                  {1'000, "1.0 msec", "1.0"},
                  {12'399, "12.3 msec", "12.3"},
                  {999'999, "999.9 msec", "999.9"},
                  {1'000'000, "1.000 sec", "1000.0"},
                  {61'005'432, "61.005 sec", "61005.4"},
                  {-5, "1 micro second or less", "0.0"}});
  expectSpans(0, {{1, "333.3 msec", "333.3"}, {2, "666.6 msec", "666.6"}, {4, "1.333 sec", "1333.3"}}, 3);
  expectSpans(0, {{86'400'000'000'000, "86400.000 sec", "86400000.0"}}, 1'000'000'000);
}

TEST(Spans, Chrono) {
  expectSpans(1, {{9'999, "0 msec ", "0"},
                  {10'000, "1 msec", "1"},
                  {9'999'999, "999 msec", "999"},
                  {10'000'000, "1.0 sec", "1000"},
                  {19'999'999, "1.9 sec", "1999"},
                  {20'500'000, "2.0 sec", "2050"},
                  {-10'000, "0 msec ", "0"}});
}

TEST(Spans, StdClock) {
  expectSpans(2, {{0, "0 msec", "0"},
                  {1, "1 msec", "1"},
                  {999, "999 msec", "999"},
                  {1'000, "1.000 sec", "1000"},
                  {2'050, "2.050 sec", "2050"}});
}

TEST(Spans, EachNameHasItsStamps) {
  test::ScriptedPlatform platform;
  TimeData t;
  t.SetClockByIndex(2);
  t.StampClock = {1, 11, 111, 1'111, 5'000, 5'007};
  EXPECT_EQ(DetTimeDiff_MilliSecStr_General(t, platform, "ReadFileTime"), "10");
  EXPECT_EQ(DetTimeDiff_MilliSecStr_General(t, platform, "AssembleTime"), "100");
  EXPECT_EQ(DetTimeDiff_MilliSecStr_General(t, platform, "LinkTime"), "1000");
  EXPECT_EQ(DetTimeDiff_MilliSecStr_General(t, platform, "RunTime"), "7");
  EXPECT_TRUE(DetTimeDiff_General(t, platform, "Run").starts_with("PrgError"));
  EXPECT_TRUE(DetTimeDiff_MilliSecStr_General(t, platform, "").starts_with("PrgError"));
}

TEST(Spans, NoFrequencyIsTold) {
  Counter platform;
  platform.frequency = 0;
  TimeData t;
  t.StampQPC = {1, 2, 3, 4, 5, 6};
  EXPECT_EQ(DetTimeDiff_General(t, platform, "RunTime"), "1 micro second or less");
  EXPECT_TRUE(platform.console.starts_with("Fail to get FreqQP. "));
  EXPECT_EQ(DetTimeDiff_MilliSecStr_General(t, platform, "RunTime"), "0.0");
}

TEST(Stamps, AnUnknownClockIsToldAndTheProcessorTimeKept) {
  test::ScriptedPlatform platform;
  platform.ticks = 42'000;
  TimeData t;
  t.ClockIndex = 7;
  takeStamp(t, platform, Stamp::RunStart);
  EXPECT_EQ(t.StampClock[4], 42);
  EXPECT_TRUE(platform.console.starts_with("PrgError"));
}

}  // namespace
}  // namespace zelvaro
