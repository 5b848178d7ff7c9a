#include "diag/Message.h"

#include <fmt/args.h>
#include <fmt/format.h>

#include "diag/Heads.h"

namespace zelvaro {
namespace {

Catalogue::Entry*& catalogueHead() {
  static Catalogue::Entry* head = nullptr;
  return head;
}

std::string fillHoles(std::string_view text, const ArgNames& names, int line,
                      std::initializer_list<MsgArg> values) {
  if (text.find('{') == std::string_view::npos) return std::string(text);
  fmt::dynamic_format_arg_store<fmt::format_context> store;
  std::size_t i = 0;
  for (const MsgArg& v : values) store.push_back(fmt::arg(names.name[i++], std::string_view(v.text)));
  store.push_back(fmt::arg("line", line + 1));
  return fmt::vformat(text, store);
}

std::string lineHead(Severity severity, int lang, int line) {
  std::string out(severityHead(severity, lang));
  if (lang == kJapanese) return out + std::to_string(line + 1) + std::string(kLineWord);
  return out + std::string(kLineWordE) + std::to_string(line + 1);
}

std::string headOf(const Message& row, int lang, int line, std::initializer_list<MsgArg> values) {
  const bool english = lang != kJapanese;
  switch (row.head) {
    case Head::None:
      return {};
    case Head::Prefix:
      return std::string(logPrefix(row.severity, lang));
    case Head::Bare:
      return std::string(severityHead(row.severity, lang));
    case Head::Line:
      return lineHead(row.severity, lang, line) + (english ? ": " : "");
    case Head::BreakLine:
      return "\n" + lineHead(row.severity, lang, line) + (english ? ": " : "");
    case Head::LineBlank:
      return lineHead(row.severity, lang, line) + (english ? " " : "");
    case Head::LineBare:
      return lineHead(row.severity, lang, line);
    case Head::QuoteLine:
      return std::string(severityHead(row.severity, lang)) + values.begin()->text +
             (english ? std::string(kLineWordE) + std::to_string(line + 1) + ": "
                      : std::to_string(line + 1) + std::string(kLineWord));
    case Head::Own:
      return fillHoles(english ? row.ownHead.en : row.ownHead.ja, row.argNames, line, values);
  }
  return {};
}

}  // namespace

Filled fill(const Message& row, FamilyId family, int lang, int line, std::initializer_list<MsgArg> values) {
  Filled out{headOf(row, lang, line, values), {}, false};
  std::string_view text = row.text(family, lang);
  // A quote directly behind the head belongs to the head: the replay leaves it out.
  constexpr std::string_view kQuoteHole = "{quote}";
  if (text.starts_with(kQuoteHole) && row.head != Head::None) {
    out.head += fillHoles(kQuoteHole, row.argNames, line, values);
    text.remove_prefix(kQuoteHole.size());
  }
  if (text.starts_with('\n')) {
    out.breakAfterHead = true;
    text.remove_prefix(1);
  }
  out.text = fillHoles(text, row.argNames, line, values);
  return out;
}

std::string fillText(const Message& row, FamilyId family, int lang, std::initializer_list<MsgArg> values) {
  return fillHoles(row.text(family, lang), row.argNames, 0, values);
}

Catalogue::Entry::Entry(const Message& m) : row(&m), next(catalogueHead()) {
  catalogueHead() = this;
}

Catalogue::Entry* Catalogue::first() {
  return catalogueHead();
}

std::string ordinal(long long n) {
  switch (n) {
    case 1:
      return "1st";
    case 2:
      return "2nd";
    case 3:
      return "3rd";
    default:
      return std::to_string(n) + "th";
  }
}

}  // namespace zelvaro
