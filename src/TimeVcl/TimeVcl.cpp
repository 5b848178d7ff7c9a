#include "TimeVcl/TimeVcl.h"

#include <algorithm>

#include "diag/Render.h"

namespace zelvaro {
namespace {

constexpr Message noFrequency =
    notice("self-no-frequency", args(), bothLanguages("Fail to get FreqQP. \nPrgError: TimeVcl\n"));
constexpr Message unknownClock =
    notice("self-clock-unknown", args("index"), bothLanguages("PrgError: ClockIndex={index}\n"));

enum Clock { kQPC = 0, kChrono = 1, kStdClock = 2 };

struct SpanName {
  std::string_view name;
  Stamp from, to;
};
constexpr SpanName kSpans[] = {
    {"ReadFileTime", Stamp::ReadFileStart, Stamp::AssembleStart},
    {"AssembleTime", Stamp::AssembleStart, Stamp::AssembleEnd},
    {"LinkTime", Stamp::AssembleEnd, Stamp::LinkEnd},
    {"RunTime", Stamp::RunStart, Stamp::RunEnd},
};

constexpr std::string_view kUnknownSpan = "PrgError: unknown span";

constexpr std::size_t at(Stamp stamp) {
  return static_cast<std::size_t>(stamp);
}

/// A time span of the selected clock.
struct Span {
  std::int64_t ms = 0;      ///< whole milliseconds
  std::int64_t tenths = 0;  ///< 0 to 9 tenths of a millisecond after them, QPC only
};

template <class Stamps>
std::int64_t between(const Stamps& stamps, const SpanName& s) {
  // a system clock that was set back must not give a negative time
  const std::int64_t d = std::int64_t{stamps[at(s.to)]} - std::int64_t{stamps[at(s.from)]};
  return std::max<std::int64_t>(d, 0);
}

/// The frequency is the divisor: if it is 0, that is reported and the span is 0.
Span spanOfQPC(const TimeData& t, Platform& platform, const SpanName& s) {
  const std::int64_t f = platform.performanceFrequency();
  if (f == 0) {
    platform.print(words({}, noFrequency));
    return {};
  }
  const std::int64_t d = between(t.StampQPC, s) * 1000;
  return {d / f, d % f * 10 / f};
}

Span spanOf(const TimeData& t, Platform& platform, const SpanName& s) {
  if (t.ClockIndex == kQPC) return spanOfQPC(t, platform, s);
  if (t.ClockIndex == kChrono) return {between(t.StampChrono, s) / 10000, 0};
  return {between(t.StampClock, s), 0};
}

const SpanName* findSpan(std::string_view name) {
  const auto* s =
      std::find_if(std::begin(kSpans), std::end(kSpans), [&](const SpanName& n) { return n.name == name; });
  return s == std::end(kSpans) ? nullptr : s;
}

/// Milliseconds as seconds with three digits after the decimal point.
std::string seconds(std::int64_t ms) {
  const std::string rest = std::to_string(ms % 1000);
  return std::to_string(ms / 1000) + "." + std::string(3 - rest.size(), '0') + rest + " sec";
}

/// "(12.3, 45.6": the spans as plain numbers.
template <class... Name>
std::string spans(const TimeData& t, Platform& platform, const Name&... name) {
  std::string out;
  for (const std::string_view n : {std::string_view(name)...})
    out += (out.empty() ? "(" : ", ") + DetTimeDiff_MilliSecStr_General(t, platform, n);
  return out;
}

}  // namespace

void TimeData::SetClockByIndex(int index) {
  SetClockByName(index == kQPC ? "QPC" : index == kStdClock ? "std::clock()" : "std::chrono");
}

void TimeData::SetClockByName(std::string_view name) {
  ClockName = name;
  ClockIndex = name == "QPC" ? kQPC : name == "std::clock()" ? kStdClock : kChrono;
}

void takeStamp(TimeData& t, Platform& platform, Stamp stamp) {
  switch (t.ClockIndex) {
    case kQPC:
      t.StampQPC[at(stamp)] = platform.performanceCounter();
      break;
    case kChrono:
      t.StampChrono[at(stamp)] = platform.chronoTicks();
      break;
    default:
      platform.print(words({}, unknownClock, t.ClockIndex));
      [[fallthrough]];
    case kStdClock:
      t.StampClock[at(stamp)] = platform.clockMilliseconds();
      break;
  }
}

std::string DetTimeDiff_General(const TimeData& t, Platform& platform, std::string_view name) {
  const SpanName* found = findSpan(name);
  if (found == nullptr) return std::string(kUnknownSpan);
  const Span s = spanOf(t, platform, *found);
  const std::string ms = std::to_string(s.ms);
  switch (t.ClockIndex) {
    case kQPC:
      if (s.ms < 1) return "1 micro second or less";
      return s.ms < 1000 ? ms + "." + std::to_string(s.tenths) + " msec" : seconds(s.ms);
    case kChrono:
      if (s.ms == 0) return "0 msec ";
      if (s.ms < 1000) return ms + " msec";
      return std::to_string(s.ms / 1000) + "." + std::to_string(s.ms % 1000 / 100) + " sec";
    default:
      return s.ms < 1000 ? ms + " msec" : seconds(s.ms);
  }
}

std::string DetTimeDiff_MilliSecStr_General(const TimeData& t, Platform& platform, std::string_view name) {
  const SpanName* found = findSpan(name);
  if (found == nullptr) return std::string(kUnknownSpan);
  const Span s = spanOf(t, platform, *found);
  return std::to_string(s.ms) + (t.ClockIndex == kQPC ? "." + std::to_string(s.tenths) : "");
}

std::string timeLineOfErrors(const TimeData& t, Platform& platform, TimeLines form) {
  return spans(t, platform, "ReadFileTime", "AssembleTime") + ") msec =(ReadFile, Assemble)Time " +
         (form == TimeLines::Fixed ? "" : t.ClockName + "  ") + "\n";
}

std::string timeLineOfLink(const TimeData& t, Platform& platform, TimeLines form) {
  if (form == TimeLines::Fixed) return timeLineOfReport(t, platform, ReportForm::Fixed);
  return spans(t, platform, "ReadFileTime", "AssembleTime", "LinkTime") +
         ") msec =(ReadFile, Assemble, Link)Time  " + t.ClockName + " \n";
}

std::string timeLineOfReport(const TimeData& t, Platform& platform, ReportForm form) {
  const std::string numbers = spans(t, platform, "ReadFileTime", "AssembleTime", "LinkTime");
  if (form == ReportForm::Wide)
    return numbers + ") msec =(Read File, Assemble, Link)Time  " + t.ClockName + " \n";
  return numbers + ") msec =(ReadFile, Assemble, Link)Time " + t.ClockName + "  \n";
}

RowList rowsOfTimeVcl() {
  return rows(noFrequency, unknownClock);
}

}  // namespace zelvaro
