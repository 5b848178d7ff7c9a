// The programs that the run loop is measured with, as images.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace zelvaro::bench {

inline constexpr int kInGR0 = -1;

struct Workload {
  const char* name;
  std::span<const std::uint16_t> words;  ///< from address 0; the rest is 0
  int PrgEndAdr;                         ///< words of the whole image
  std::int64_t instructions;             ///< executed by a run
  int resultAdr;                         ///< where the result is, or kInGR0
  std::int32_t result;                   ///< its low 16 bits
};

const std::vector<Workload>& workloads();

}  // namespace zelvaro::bench
