// An issued message as a value: row, line and arguments.  It contains no words: language and family are
// chosen when it is rendered (Render.h).
#pragma once

#include <concepts>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "diag/Message.h"

namespace zelvaro {

/// A text of the source that a message quotes, UTF-8, without quotation marks.
struct Quoted {
  std::string text;
};

/// One argument: a UTF-8 text, a text of the source to be quoted, a number, or the words of another row.
struct MsgArg {
  enum class Kind : unsigned char { Text, Quoted, Number, Row };

  Kind kind = Kind::Text;
  std::string text;                 ///< set for every kind but Row
  const MessageRow* row = nullptr;  ///< set for kind Row: a row without arguments

  MsgArg(Quoted q) : kind(Kind::Quoted), text(std::move(q.text)) {}
  MsgArg(std::string t) : text(std::move(t)) {}
  MsgArg(std::string_view t) : text(t) {}
  MsgArg(const char* t) : text(t) {}
  MsgArg(const Message<0>& words) : kind(Kind::Row), row(&words) {}
  template <std::integral Int>
  MsgArg(Int value) : kind(Kind::Number), text(std::to_string(value)) {}
};

struct Diagnostic {
  static constexpr int kNoLine = -1;

  const MessageRow* row;
  int line;  ///< 0-based index of the line in the file, or kNoLine
  std::vector<MsgArg> args;
};

/// Makes the value of a row with its arguments.
template <std::size_t N, class... Arg>
requires(sizeof...(Arg) == N) Diagnostic diagnostic(const Message<N>& row, int line, Arg&&... arg) {
  Diagnostic d{&row, line, {}};
  d.args.reserve(N);
  (d.args.emplace_back(std::forward<Arg>(arg)), ...);
  return d;
}

/// The value refers to its row, so a temporary row is not accepted.
template <std::size_t N, class... Arg>
Diagnostic diagnostic(const Message<N>&& row, int line, Arg&&... arg) = delete;

/// Receives every message that is issued.
class DiagSink {
 public:
  virtual ~DiagSink() = default;
  virtual void take(const Diagnostic& diagnostic) = 0;

  /// Issues a message without a line: those of the shell and of a run.
  template <std::size_t N, class... Arg>
  requires(sizeof...(Arg) == N) void say(const Message<N>& row, Arg&&... arg) {
    take(diagnostic(row, Diagnostic::kNoLine, std::forward<Arg>(arg)...));
  }
};

/// Passes every message on to several sinks, in the order in which they were added.
class DiagChannel : public DiagSink {
 public:
  void add(DiagSink& sink) { sinks_.push_back(&sink); }
  void take(const Diagnostic& diagnostic) override {
    for (DiagSink* sink : sinks_) sink->take(diagnostic);
  }

 private:
  std::vector<DiagSink*> sinks_;
};

/// "1st", "2nd", "3rd", else the number and "th".
std::string ordinal(long long n);

}  // namespace zelvaro
