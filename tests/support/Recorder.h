// What has been issued, as codes and arguments: texts are the catalogue's.
#pragma once

#include <string>

#include "diag/Diagnostic.h"

namespace zelvaro::test {

/// "code(argument, argument)@line " for each message; the line counts from 1.
class Recorder : public DiagSink {
 public:
  std::string text;

  void take(const Diagnostic& d) override {
    text += d.row->code;
    for (std::size_t i = 0; i < d.args.size(); ++i) text += (i == 0 ? "(" : ", ") + d.args[i].text;
    if (!d.args.empty()) text += ")";
    if (d.line != Diagnostic::kNoLine) text += "@" + std::to_string(d.line + 1);
    text += " ";
  }
  /// What has come since the last call.
  std::string taken() {
    std::string out;
    out.swap(text);
    return out;
  }
};

}  // namespace zelvaro::test
