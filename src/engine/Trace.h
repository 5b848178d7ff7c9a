// What one step changes.
#pragma once

#include <vector>

#include "comet2/Comet2.h"
#include "engine/Machine.h"

namespace zelvaro::engine {

/// The values, before a step, of everything that it can change.
class BeforeStep {
 public:
  explicit BeforeStep(const Tcomet2& m);
  /// What differs in the machine after the step.
  std::vector<Change> changes(const Tcomet2& m) const;

 private:
  void watchMemory(const Tcomet2& m);
  void watch(int address);

  std::vector<Change> watched_;  ///< places with their value before the step
};

Registers registersOf(const Tcomet2& m);

}  // namespace zelvaro::engine
