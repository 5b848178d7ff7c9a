// The guards of the virtual OS: the messages of a run that stops, and the checks of indexed stores.
#pragma once

#include <cstdint>

#include "comet2/Comet2.h"
#include "comet2/Run.h"
#include "comet2/Stop.h"

namespace zelvaro {

/// Called for every indexed store at or above `from()`.
class StoreWatch {
 public:
  virtual ~StoreWatch() = default;
  /// The store guard and the store warning.  PR is the address of the second word of the ST, which has been
  /// executed `count` times.  Returns whether the store is carried out; if not, the run must stop.
  virtual bool st511(Tcomet2& m, std::int32_t effAdr, std::int32_t count) = 0;
  std::int32_t from() const { return from_; }
  /// For a run that goes back to an earlier state: the value of from() then.
  void setFrom(std::int32_t from) { from_ = from; }

 protected:
  explicit StoreWatch(std::int32_t from) : from_(from) {}
  std::int32_t from_;
};

/// The guard of a family: its limit and its messages.
class GuardedStores : public StoreWatch {
 public:
  GuardedStores(const Tcomet2& m, const RunEnvironment& env);
  bool st511(Tcomet2& m, std::int32_t effAdr, std::int32_t count) override;

 private:
  const RunEnvironment& env_;
};

/// Reports why the run has stopped.  The end message and the run time, which may follow, are not included.
void reportStop(Stop stop, const Tcomet2& m, DiagSink& sink);

}  // namespace zelvaro
