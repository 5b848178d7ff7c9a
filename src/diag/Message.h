// The catalogue of messages.  One constexpr row a message, at the head of the file of the check that
// issues it, with both languages and every family's words.  The compiler refuses a hole that the row does
// not declare and a language that is missing.
//
//   constexpr Message labelTooLong{
//       Severity::Error, Head::Line, args("quote", "count"),
//       {.ja = "{quote} ラベルの長さは 8 文字までに制限されている。 {count} 文字ある。",
//        .en = "{quote}  A label must be 1 to 8 characters in length. ..."}};
//
// and in the check:  cs.report<Family, labelTooLong>(line, quote(label), label.size());
#pragma once

#include <array>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

#include "diag/Family.h"

namespace zelvaro {

inline constexpr int kJapanese = 0;
inline constexpr int kEnglish = 1;

enum class Severity : std::uint8_t { Error, Warning, Note, Memo, Plain };

/// What is printed in front of a message's own text.  <n> is the 1-based line number, <q> the message's
/// first argument (a quoted text).
enum class Head : std::uint8_t {
  None,       ///< nothing
  Prefix,     ///< the log's prefix: "エラー： " / "Error: "
  Bare,       ///< the head alone: "エラー： " / "Error : "
  Line,       ///< "エラー： <n> 行目： " / "Error : line <n>: "
  QuoteLine,  ///< "エラー： <q><n> 行目： " / "Error : <q>line <n>: "
  BreakLine,  ///< a line break, then as Line
  LineBlank,  ///< as Line, but "Error : line <n> " in English
  LineBare,   ///< as Line, but "Error : line <n>" in English
  Own         ///< the words of Message::ownHead
};

/// One wording in both languages, UTF-8.  A line break separates the lines of the message; no line break
/// stands at the end.  "{name}" is a hole for the argument of that name, "{line}" the line number.
struct Words {
  std::string_view ja;
  std::string_view en;
};

/// The same text in both languages.
consteval Words bothLanguages(std::string_view text) {
  return {text, text};
}

/// Another family's words.  An empty language is that of the row itself.
struct OtherWords {
  std::uint8_t families;  ///< a bit for each FamilyId
  Words words;
};

template <std::same_as<FamilyId>... Id>
consteval std::uint8_t families(Id... id) {
  return static_cast<std::uint8_t>(((1u << static_cast<unsigned>(id)) | ... | 0u));
}

struct ArgNames {
  static constexpr std::size_t kMost = 8;
  std::array<const char*, kMost> name{};
  std::size_t count = 0;
};

template <std::convertible_to<const char*>... Name>
consteval ArgNames args(Name... name) {
  static_assert(sizeof...(Name) <= ArgNames::kMost);
  return {{name...}, sizeof...(Name)};
}

struct Message {
  static constexpr std::size_t kMostOthers = 4;

  Severity severity;
  Head head;
  ArgNames argNames;
  Words words;
  std::array<OtherWords, kMostOthers> others{};
  std::size_t otherCount = 0;
  Words ownHead{};
  bool counts = true;      ///< raises the tally of its severity
  bool logs = true;        ///< leaves a record in the log, in a family that writes one
  bool continues = false;  ///< its lines belong to the record of the message in front

  consteval Message(Severity s, Head h, ArgNames a, Words w, std::initializer_list<OtherWords> more = {})
      : severity(s), head(h), argNames(a), words(w) {
    if (w.ja.empty() || w.en.empty()) throw "a message has both languages";
    if (more.size() > kMostOthers) throw "too many other wordings";
    check(w);
    for (const OtherWords& o : more) {
      check(o.words);
      others[otherCount++] = o;
    }
    if (h == Head::QuoteLine && a.count == 0) throw "this head quotes the first argument";
  }

  /// The same row with a head of its own; what it says is no part of the replayed text.
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
  /// More lines of the message in front, which has been counted.
  consteval Message continued() const {
    Message m = uncounted();
    m.continues = true;
    return m;
  }
  consteval Message unlogged() const {
    Message m = *this;
    m.logs = false;
    return m;
  }

  /// The row's words for a family and a language (0 Japanese, any other value English).
  constexpr std::string_view text(FamilyId family, int lang) const {
    for (std::size_t i = 0; i < otherCount; ++i) {
      if ((others[i].families >> static_cast<unsigned>(family) & 1u) == 0) continue;
      const std::string_view t = lang == kJapanese ? others[i].words.ja : others[i].words.en;
      if (!t.empty()) return t;
    }
    return lang == kJapanese ? words.ja : words.en;
  }

 private:
  constexpr bool declares(std::string_view hole) const {
    if (hole == "line") return true;
    for (std::size_t i = 0; i < argNames.count; ++i)
      if (hole == argNames.name[i]) return true;
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
};

/// One argument of a message: a UTF-8 text or a number in decimal.
struct MsgArg {
  std::string text;
  MsgArg(std::string t) : text(std::move(t)) {}
  MsgArg(std::string_view t) : text(t) {}
  MsgArg(const char* t) : text(t) {}
  template <std::integral Int>
  MsgArg(Int value) : text(std::to_string(value)) {}
};

/// A message with its holes filled.
struct Filled {
  std::string head;  ///< what stands in front, a leading quote of the text included
  std::string text;  ///< the message's own text, without a line break at its beginning
  bool breakAfterHead = false;
};

/// Fills the holes.  `line` is a 0-based line index.
Filled fill(const Message& row, FamilyId family, int lang, int line, std::initializer_list<MsgArg> values);

/// The row's own text alone, with its holes filled: for what is printed outside the diagnostic channel.
std::string fillText(const Message& row, FamilyId family, int lang, std::initializer_list<MsgArg> values);

/// Every row that some report call of the program names, and whether it has been issued yet.
class Catalogue {
 public:
  struct Entry {
    const Message* row;
    std::array<bool, 2> fired{};
    Entry* next = nullptr;
    explicit Entry(const Message& m);
  };
  static Entry* first();
};

/// The catalogue's entry of a row; naming it in a report call is what enters the row.
template <const Message& Row>
inline Catalogue::Entry catalogued{Row};

/// "1st", "2nd", "3rd", else the number and "th".
std::string ordinal(long long n);

}  // namespace zelvaro
