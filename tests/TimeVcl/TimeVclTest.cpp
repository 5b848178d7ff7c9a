// Clocks, and spans at their edges.  Time lines are in the dialogues.
#include <gtest/gtest.h>

#include "TimeVcl/TimeVcl.h"
#include "support/ScriptedPlatform.h"

namespace zelvaro {
namespace {

/// A counter whose frequency is a test's choice.
struct Counter : test::ScriptedPlatform {
  std::int64_t frequency = 1'000'000;
  std::int64_t performanceFrequency() override { return frequency; }
};

TEST(TimeData, ClocksByNameAndNumber) {
  TimeData t;
  for (const auto& [name, index] :
       std::map<std::string, int>{{"QPC", 0}, {"std::clock()", 2}, {"qpc", 1}, {"", 1}}) {
    t.SetClockByName(name);
    EXPECT_TRUE(t.ClockName == name && t.ClockIndex == index) << name;
  }
  const std::map<int, std::string> names{
      {0, "QPC"}, {1, "std::chrono"}, {2, "std::clock()"}, {3, "std::chrono"}, {-1, "std::chrono"}};
  for (const auto& [index, name] : names) {
    t.SetClockByIndex(index);
    EXPECT_EQ(t.ClockName, name) << index;
  }
}

TEST(Spans, AsTextAndAsNumber) {
  struct Case {
    int clock;
    std::int64_t difference;
    const char *text, *plain;
    std::int64_t frequency = 1'000'000;
  };
  const Case cases[] = {
      {0, 0, "1 micro second or less", "0.0"},
      {0, 999, "1 micro second or less", "0.9"},
      {0, 12'399, "12.3 msec", "12.3"},
      {0, 999'999, "999.9 msec", "999.9"},
      {0, 1'000, "1.0 msec", "1.0"},
      {0, 1'005'432, "1.005 sec", "1005.4"},
      {0, 4, "1.333 sec", "1333.3", 3},
      {0, 86'400'000'000'000, "86400.000 sec", "86400000.0", 1'000'000'000},
      {1, 9'999, "0 msec ", "0"},
      {1, 10'000, "1 msec", "1"},
      {1, -20'000, "0 msec ", "0"},  // a system clock that was set back
      {1, 10'000'000, "1.0 sec", "1000"},
      {1, 19'999'999, "1.9 sec", "1999"},
      {2, 999, "999 msec", "999"},
      {2, 1'000, "1.000 sec", "1000"},
  };
  Counter platform;
  for (const Case& c : cases) {
    TimeData t;
    t.SetClockByIndex(c.clock);
    platform.frequency = c.frequency;
    t.StampQPC = {0, 0, 0, 0, 7, 7 + c.difference};
    t.StampChrono = t.StampQPC;
    t.StampClock = {0, 0, 0, 0, 7, static_cast<std::int32_t>(7 + c.difference)};
    EXPECT_EQ(DetTimeDiff_General(t, platform, "RunTime"), c.text);
    EXPECT_EQ(DetTimeDiff_MilliSecStr_General(t, platform, "RunTime"), c.plain);
  }
}

TEST(Spans, EachNameHasItsStamps) {
  Counter platform;
  TimeData t;
  t.SetClockByIndex(2);
  t.StampClock = {1, 11, 111, 1'111, 5'000, 5'007};
  std::string spans;
  for (const char* name : {"ReadFileTime", "AssembleTime", "LinkTime", "RunTime", "Run"})
    spans += DetTimeDiff_MilliSecStr_General(t, platform, name) + " ";
  EXPECT_EQ(spans, "10 100 1000 7 PrgError: unknown span ");
  platform.frequency = 0;
  t.ClockIndex = 0;
  EXPECT_EQ(DetTimeDiff_General(t, platform, "RunTime"), "1 micro second or less");
  platform.ticks = 42'000;
  t.ClockIndex = 7;
  takeStamp(t, platform, Stamp::RunStart);
  EXPECT_EQ(t.StampClock[4], 42);
  EXPECT_EQ(platform.console, "Fail to get FreqQP. \nPrgError: TimeVcl\nPrgError: ClockIndex=7\n");
}

}  // namespace
}  // namespace zelvaro
