// Machines for the tests of this folder.
#pragma once

#include "comet2/Run.h"
#include "support/Recorder.h"
#include "support/ScriptedPlatform.h"

namespace zelvaro::test {

/// A machine with an image from address 0.
inline Tcomet2 machineWith(std::initializer_list<int> words) {
  Tcomet2 m;
  std::size_t adr = 0;
  for (const int word : words) m.Memory[adr++] = word;
  return m;
}

/// Runs to the end and returns what was issued after the start words.
inline std::string runAll(Tcomet2& m, ScriptedPlatform& platform, int PrgEndAdr = tMaxMemory,
                          FamilyId id = FamilyId::WP) {
  Recorder sink;
  TimeData time;
  Run3(m, {platform, sink, time, family(id), PrgEndAdr});
  const std::string start = "run-start ";
  return sink.text.starts_with(start) ? sink.text.substr(start.size()) : "no start words: " + sink.text;
}
inline std::string runAll(Tcomet2& m, int PrgEndAdr = tMaxMemory, FamilyId id = FamilyId::WP) {
  ScriptedPlatform platform;
  return runAll(m, platform, PrgEndAdr, id);
}

/// What follows a normal end, and most forced ones.
inline const std::string kEnd = "run-end run-time(1 micro second or less) ";

}  // namespace zelvaro::test
