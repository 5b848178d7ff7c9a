// Machines for the tests of this folder.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "comet2/Comet2.h"
#include "comet2/Run.h"
#include "support/ScriptedPlatform.h"

namespace zelvaro::test {

/// A machine with an image from address 0.
inline Tcomet2 machineWith(std::initializer_list<int> words) {
  Tcomet2 m;
  std::size_t adr = 0;
  for (const int word : words) m.Memory[adr++] = word;
  return m;
}

/// Runs to the end and gives back what the console shows behind the start words.
template <class Family>
std::string runAll(Tcomet2& m, ScriptedPlatform& platform, int PrgEndAdr, int* result = nullptr) {
  TimeData time;
  platform.console.clear();
  const int code = Run3<Family>(m, {platform, time, PrgEndAdr});
  if (result != nullptr) *result = code;
  const std::string_view start = m.IsEnglish == 0
                                     ? "\n演算実行 開始、しばらくお待ちください。\nCOMET2 実行中 "
                                     : "The comet2 starts running, please wait for a moment ...,\n";
  if (!platform.console.starts_with(start)) return "no start words: " + platform.console;
  return platform.console.substr(start.size());
}

inline std::string runAll(Tcomet2& m, int PrgEndAdr = tMaxMemory) {
  ScriptedPlatform platform;
  return runAll<WP>(m, platform, PrgEndAdr);
}

/// What follows a normal end, and most forced ones.
inline const std::string kEnd = "and it has come to an end of the program\nin 1 micro second or less. ";

}  // namespace zelvaro::test
