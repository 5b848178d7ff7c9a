// The platform of a run that is to stay short.
#pragma once

#include "support/ScriptedPlatform.h"

namespace zelvaro::test {

/// Thrown through a run that prints without an end.
struct TooMuchOutput {};

class LimitedPlatform : public ScriptedPlatform {
 public:
  LimitedPlatform() = default;
  explicit LimitedPlatform(const ScriptedPlatform& other) : ScriptedPlatform(other) { console.clear(); }
  void print(std::string_view utf8) override {
    ScriptedPlatform::print(utf8);
    if (console.size() > kMostOutput) throw TooMuchOutput();
  }

 private:
  static constexpr std::size_t kMostOutput = 300'000;  // OUT of a whole memory, once
};

}  // namespace zelvaro::test
