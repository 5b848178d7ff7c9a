// The exit statuses, and which one of several files counts.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>

namespace zelvaro::check {

enum class Status : std::uint8_t {
  Clean = 0,    ///< warnings and notes are allowed
  Faulty = 1,   ///< errors in a source
  Guard = 2,    ///< a guard has stopped the run
  Limit = 3,    ///< the limit of steps or of output, or the input is exhausted
  Differs = 4,  ///< output or grade differs from what is expected
  File = 5,     ///< a file that cannot be read or written
  Usage = 64    ///< wrong use
};

/// Of several files the first one in this order that occurred.
inline constexpr std::array kWorstFirst{Status::Usage, Status::File,    Status::Faulty, Status::Guard,
                                        Status::Limit, Status::Differs, Status::Clean};

constexpr Status worse(Status a, Status b) {
  return *std::find_if(kWorstFirst.begin(), kWorstFirst.end(), [&](Status s) { return s == a || s == b; });
}

}  // namespace zelvaro::check
