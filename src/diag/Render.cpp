#include "diag/Render.h"

#include "diag/Heads.h"

namespace zelvaro {
namespace {

std::string valueOf(const MsgArg& arg, Wording wording) {
  if (arg.kind == MsgArg::Kind::Row) return std::string(arg.row->text(wording.family, wording.language));
  return arg.kind == MsgArg::Kind::Quoted ? quotedText(arg.text) : arg.text;
}

std::string valueOf(const Diagnostic& d, std::string_view hole, Wording wording) {
  for (std::size_t i = 0; i < d.args.size(); ++i)
    if (hole == d.row->argName[i]) return valueOf(d.args[i], wording);
  return std::to_string(d.line + 1);  // {line}: any other name does not compile
}

std::string fillHoles(std::string_view text, const Diagnostic& d, Wording wording) {
  std::string out;
  for (std::size_t open = text.find('{'); open != text.npos; open = text.find('{')) {
    const std::size_t close = text.find('}', open);
    out += text.substr(0, open);
    out += valueOf(d, text.substr(open + 1, close - open - 1), wording);
    text.remove_prefix(close + 1);
  }
  return out += text;
}

std::string lineHead(Severity severity, Language language, int line) {
  const std::string head(severityHead(severity).in(language));
  const std::string number = std::to_string(line + 1);
  return language == Language::Japanese ? head + number + std::string(kLineWord.ja)
                                        : head + std::string(kLineWord.en) + number;
}

std::string headOf(const Diagnostic& d, Wording wording) {
  const Language language = wording.language;
  const MessageRow& row = *d.row;
  const bool english = language == Language::English;
  switch (row.head) {
    case Head::None:
    case Head::Open:
      return {};
    case Head::Prefix:
      return std::string(logPrefix(row.severity).in(language));
    case Head::Bare:
      return std::string(severityHead(row.severity).in(language));
    case Head::Line:
      return lineHead(row.severity, language, d.line) + (english ? ": " : "");
    case Head::BreakLine:
      return "\n" + lineHead(row.severity, language, d.line) + (english ? ": " : "");
    case Head::LineBlank:
      return lineHead(row.severity, language, d.line) + (english ? " " : "");
    case Head::LineBare:
      return lineHead(row.severity, language, d.line);
    case Head::QuoteLine: {
      const std::string number = std::to_string(d.line + 1);
      return std::string(severityHead(row.severity).in(language)) + valueOf(d.args.front(), wording) +
             (english ? std::string(kLineWord.en) + number + ": " : number + std::string(kLineWord.ja));
    }
    case Head::Own:
      return fillHoles(row.headText(wording.family, language), d, wording);
  }
  return {};
}

struct Filled {
  std::string head;             ///< what is printed first, a leading quote of the text included
  std::string text;             ///< the message's own text, without a line break at its beginning
  bool breakAfterHead = false;  ///< the text is printed on a line of its own
};

Filled fill(const Diagnostic& d, Wording wording) {
  Filled out{headOf(d, wording), {}, false};
  std::string_view text = d.row->text(wording.family, wording.language);
  if (d.row->head == Head::Open) return {{}, fillHoles(text, d, wording), false};
  // A quote directly after the head belongs to the head: the replay leaves it out.
  constexpr std::string_view kQuoteHole = "{quote}";
  if (text.starts_with(kQuoteHole) && d.row->head != Head::None) {
    out.head += fillHoles(kQuoteHole, d, wording);
    text.remove_prefix(kQuoteHole.size());
  }
  if (text.starts_with('\n')) {
    out.breakAfterHead = true;
    text.remove_prefix(1);
  }
  out.text = fillHoles(text, d, wording);
  return out;
}

}  // namespace

std::string render(const Diagnostic& d, Wording wording) {
  Filled filled = fill(d, wording);
  std::string printed = std::move(filled.head);
  if (filled.breakAfterHead) printed += '\n';
  printed += filled.text;
  if (d.row->head != Head::Open) printed += '\n';
  return printed;
}

std::string renderText(const Diagnostic& d, Wording wording) {
  return fill(d, wording).text;
}

std::string quotedText(std::string_view utf8) {
  return " \"" + std::string(utf8) + "\" ";
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
