// TimeVcl: the three clocks, the six stamps of a run and the spans between them.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "diag/Family.h"
#include "platform/Platform.h"

namespace zelvaro {

enum class Stamp { ReadFileStart, AssembleStart, AssembleEnd, LinkEnd, RunStart, RunEnd };
inline constexpr std::size_t kStamps = 6;

/// The shared record of the selected clock and its stamps.
struct TimeData {
  std::string ClockName = "QPC";
  int ClockIndex = 0;                               ///< 0 QPC, 1 std::chrono, 2 std::clock()
  std::array<std::int32_t, kStamps> StampClock{};   ///< milliseconds
  std::array<std::int64_t, kStamps> StampChrono{};  ///< units of 100 nanoseconds
  std::array<std::int64_t, kStamps> StampQPC{};     ///< ticks of the performance counter

  void SetClockByIndex(int index);
  void SetClockByName(std::string_view name);
};

/// Takes a stamp with the selected clock.
void takeStamp(TimeData& t, Platform& platform, Stamp stamp);

/// A span by its name: "ReadFileTime", "AssembleTime", "LinkTime" or "RunTime", as a text with its unit ...
std::string DetTimeDiff_General(const TimeData& t, Platform& platform, std::string_view name);
/// ... and as a plain number of milliseconds.
std::string DetTimeDiff_MilliSecStr_General(const TimeData& t, Platform& platform, std::string_view name);

/// The time lines: "(12.3, 45.6) msec =..." without and with the link, line end included.
std::string timeLineOfErrors(const TimeData& t, Platform& platform, TimeLines form);
std::string timeLineOfLink(const TimeData& t, Platform& platform, TimeLines form);
/// The line of a report file.
std::string timeLineOfReport(const TimeData& t, Platform& platform, ReportForm form);

}  // namespace zelvaro
