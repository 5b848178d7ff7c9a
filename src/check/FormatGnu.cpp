// One line for each message, as compilers print them: FILE:LINE:COL: error: words [code]
#include <fmt/format.h>

#include "check/Formats.h"

namespace zelvaro::check {

std::string_view severityName(Severity severity) {
  switch (severity) {
    case Severity::Error:
      return "error";
    case Severity::Warning:
      return "warning";
    default:
      return "note";
  }
}

namespace {

/// A text on one line: each run of line breaks, with the blanks around it, is one blank.
std::string onOneLine(std::string_view text) {
  std::string out;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
    std::string_view part = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    const std::size_t first = part.find_first_not_of(' ');
    if (first == part.npos) continue;
    part = part.substr(first, part.find_last_not_of(' ') + 1 - first);
    if (!out.empty()) out += ' ';
    out += part;
  }
  // what followed a quoted text in a printed line
  if (out.starts_with(": ")) out.erase(0, 2);
  return out;
}

class Gnu : public LineFormat {
 public:
  explicit Gnu(Language language) : language_(language) {}

  void findings(const FileResult& result, Channel& channel) const override {
    if (!result.assembled) {
      if (result.fault) show(result.path, *result.fault, "error", channel);
      return;
    }
    for (const engine::Finding& f : result.assembled->findings())
      if (f.severity != Severity::Notice)
        show(result.path, f, f.continues ? "note" : severityName(f.severity), channel);
  }

  void afterRun(const FileResult& result, Channel& channel) const override {
    if (result.run) {
      for (const RunMessage& m : result.run->messages)
        show(result.path, m.finding, m.isStop && !m.finding.continues ? "error" : "warning", channel);
      for (const Remark& r : result.run->remarks) show(result.path, r, "error", channel);
    }
    for (const Remark& hint : result.hints) show(result.path, hint, "note", channel);
    if (result.assembled && result.fault) show(result.path, *result.fault, "error", channel);
  }

 private:
  void show(const std::string& path, const engine::Finding& f, std::string_view kind,
            Channel& channel) const {
    const std::string words = onOneLine(f.text.in(language_));
    const bool isQuoted = f.quoted.empty() || words.find(f.quoted) != words.npos;
    show(path, f.line, f.column, kind, isQuoted ? words : onOneLine('"' + f.quoted + "\" " + words), f.code,
         channel);
  }
  void show(const std::string& path, const Remark& r, std::string_view kind, Channel& channel) const {
    show(path, r.line, r.column, kind, onOneLine(r.text.in(language_)), r.code, channel);
  }
  /// A line without a known column is named by its first one.
  static void show(const std::string& path, int line, int column, std::string_view kind,
                   const std::string& words, std::string_view code, Channel& channel) {
    channel.err(line > 0 ? fmt::format("{}:{}:{}: ", path, line, std::max(column, 1)) : path + ": ",
                Shade::Quote);
    channel.err(fmt::format("{}: ", kind), kind == "error"     ? Shade::Error
                                           : kind == "warning" ? Shade::Warning
                                                               : Shade::Note);
    channel.err(fmt::format("{} [{}]\n", words, code));
  }

  Language language_;
};

}  // namespace

std::unique_ptr<LineFormat> gnuFormat(Language language) {
  return std::make_unique<Gnu>(language);
}

}  // namespace zelvaro::check
