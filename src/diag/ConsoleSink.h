// Prints every message when it is issued, in the language and family of that moment.
#pragma once

#include "diag/Render.h"
#include "platform/Platform.h"

namespace zelvaro {

class ConsoleSink : public DiagSink {
 public:
  ConsoleSink(Platform& platform, const Wording& wording) : platform_(platform), wording_(wording) {}
  void take(const Diagnostic& d) override { platform_.print(render(d, wording_)); }

 private:
  Platform& platform_;
  const Wording& wording_;  ///< of the session: language and family change while it lives
};

}  // namespace zelvaro
