// The rows of the catalogue of messages.  A message is one constexpr row at the head of the file of the check
// that issues it, with a short unique code, both languages and every family's words.  It does not compile
// with a hole that the row does not declare, a wrong number of arguments or a missing language.
//
//   constexpr Message tooLong{
//       "label-length", Severity::Error, Head::Line, args("quote", "count"),
//       {.ja = "{quote} ラベルの長さは 8 文字までに制限されている。 {count} 文字ある。",
//        .en = "{quote}  A label must be 1 to 8 characters in length. ..."}};
//
// and in the check:  cs.report(tooLong, line, quote(label), label.size());
#pragma once

#include <array>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string_view>
#include <type_traits>
#include <vector>

#include "diag/Family.h"
#include "diag/Language.h"
#include "diag/Severity.h"

namespace zelvaro {

/// What is printed before a message's own text.  <n> is the 1-based line number, <q> the message's first
/// argument (a quoted text).
enum class Head : std::uint8_t {
  None,       ///< nothing
  Prefix,     ///< the log's prefix: "エラー： " / "Error: "
  Bare,       ///< the head alone: "エラー： " / "Error : "
  Line,       ///< "エラー： <n> 行目： " / "Error : line <n>: "
  QuoteLine,  ///< "エラー： <q><n> 行目： " / "Error : <q>line <n>: "
  BreakLine,  ///< a line break, then the same as Line
  LineBlank,  ///< as Line, but "Error : line <n> " in English
  LineBare,   ///< as Line, but "Error : line <n>" in English
  Own,        ///< the words of MessageRow::ownHead
  Open        ///< nothing, and no line end after the text: the row contains its own line ends
};

/// The words of some families.  A language or a head that is empty is taken from the row itself.
struct OtherWords {
  FamilySet families;
  Words words;
  Words ownHead{};
};

/// A limit that a message states: a hole that the row fills by itself, from the constant that the check uses.
struct Limit {
  const char* name = nullptr;
  long value = 0;
};
consteval Limit limit(const char* name, std::integral auto value) {
  return {name, static_cast<long>(value)};
}

/// The names of a message's N arguments, and its limits.
template <std::size_t N>
struct ArgNames {
  static constexpr std::size_t kMostLimits = 2;
  std::array<const char*, N> name{};
  std::array<Limit, kMostLimits> limits{};
};
/// Names of arguments, then limits.
template <class... Name>
consteval auto args(Name... name) {
  constexpr std::size_t limits = (std::size_t{std::is_same_v<Name, Limit>} + ... + 0);
  ArgNames<sizeof...(Name) - limits> out;
  std::size_t n = 0;
  std::size_t l = 0;
  [[maybe_unused]] const auto add = [&](auto one) {
    if constexpr (std::is_same_v<decltype(one), Limit>) {
      out.limits[l++] = one;
    } else {
      out.name[n++] = one;
    }
  };
  (add(name), ...);
  return out;
}

/// A message whose number of arguments is not part of its type, for sinks and the renderer.  A line break in
/// the words separates the lines of the message; "{name}" is a hole for the argument of that name, "{line}"
/// for the line number.
struct MessageRow {
  static constexpr std::size_t kMostArgs = 9;
  static constexpr std::size_t kMostOthers = 4;

  std::string_view code;  ///< unique: words of a to z and 0 to 9, joined by "-"
  Severity severity;
  Head head;
  std::size_t argCount;
  std::array<const char*, kMostArgs> argName{};
  std::array<Limit, 2> limits{};
  Words words;
  std::array<OtherWords, kMostOthers> others{};
  std::size_t otherCount = 0;
  Words ownHead{};
  bool counts = true;      ///< increments the tally of its severity
  bool logs = true;        ///< leaves a record in the log, in a family that writes one
  bool continues = false;  ///< its lines are added to the log record of the message before it

  /// The words, and the own head, for a family and a language.
  constexpr std::string_view text(FamilyId family, Language language) const {
    return pick(&OtherWords::words, words, family, language);
  }
  constexpr std::string_view headText(FamilyId family, Language language) const {
    return pick(&OtherWords::ownHead, ownHead, family, language);
  }

 private:
  constexpr std::string_view pick(Words OtherWords::*part, Words otherwise, FamilyId family,
                                  Language language) const {
    for (std::size_t i = 0; i < otherCount; ++i) {
      if (!others[i].families.contains(family)) continue;
      if (const std::string_view t = (others[i].*part).in(language); t.data() != nullptr) return t;
    }
    return otherwise.in(language);
  }

 protected:
  consteval MessageRow(std::string_view c, Severity s, Head h, std::size_t n, Words w)
      : code(c), severity(s), head(h), argCount(n), words(w) {}

  constexpr bool declares(std::string_view hole) const {
    if (hole == "line") return true;
    for (std::size_t i = 0; i < argCount; ++i)
      if (hole == argName[i]) return true;
    for (const Limit& l : limits)
      if (l.name != nullptr && hole == l.name) return true;
    return false;
  }
  consteval void check(std::string_view t) const {
    for (std::size_t i = 0; i < t.size(); ++i) {
      if (t[i] == '}') throw "a hole is not opened";
      if (t[i] != '{') continue;
      const std::size_t end = t.find('}', i);
      if (end == std::string_view::npos) throw "a hole is not closed";
      if (!declares(t.substr(i + 1, end - i - 1))) throw "a hole is not declared";
      i = end;
    }
  }
  consteval void check(Words w) const {
    check(w.ja);
    check(w.en);
  }
  consteval void checkCode() const {
    if (code.empty() || code.front() == '-' || code.back() == '-') throw "a code is words joined by '-'";
    for (const char c : code)
      if (!((c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-')) throw "a code is in lower case";
  }
};

/// A message with N arguments.
template <std::size_t N>
struct Message : MessageRow {
  static_assert(N <= kMostArgs);

  consteval Message(std::string_view c, Severity s, Head h, ArgNames<N> a, Words w,
                    std::initializer_list<OtherWords> more = {})
      : MessageRow(c, s, h, N, w) {
    for (std::size_t i = 0; i < N; ++i) argName[i] = a.name[i];
    limits = a.limits;
    checkCode();
    if (!w.isComplete()) throw "a message has both languages";
    if (more.size() > kMostOthers) throw "too many other wordings";
    check(w);
    for (const OtherWords& o : more) {
      check(o.words);
      others[otherCount++] = o;
    }
    if (h == Head::QuoteLine && N == 0) throw "this head quotes the first argument";
    if (s == Severity::Notice) counts = logs = false;
  }

  /// The same row with a head of its own, which is not part of the replayed text.
  consteval Message withHead(Words h) const {
    Message m = *this;
    m.head = Head::Own;
    m.ownHead = h;
    m.check(h);
    return m;
  }
  consteval Message uncounted() const {
    Message m = *this;
    m.counts = false;
    return m;
  }
  /// A row with more lines for the message before it, which has already been counted.
  consteval Message continued() const {
    Message m = *this;
    m.counts = false;
    m.continues = true;
    return m;
  }
  consteval Message unlogged() const {
    Message m = *this;
    m.logs = false;
    return m;
  }
};

/// The messages of a file, for the catalogue.
using RowList = std::vector<const MessageRow*>;
template <std::size_t... N>
RowList rows(const Message<N>&... row) {
  return {&row...};
}

/// A self-check of the program's own invariants: an Error without a head and without a record in the log.
template <std::size_t N>
consteval Message<N> selfCheck(std::string_view code, ArgNames<N> a, std::string_view text) {
  return Message<N>(code, Severity::Error, Head::None, a, bothLanguages(text)).unlogged();
}

/// A message of the shell or of a run: not a finding; no line end is added.
template <std::size_t N>
consteval Message<N> notice(std::string_view code, ArgNames<N> a, Words words,
                            std::initializer_list<OtherWords> more = {}) {
  return Message<N>(code, Severity::Notice, Head::Open, a, words, more);
}

}  // namespace zelvaro
