// The dialogue's own lines.
#include "check/Formats.h"
#include "check/Remarks.h"
#include "diag/MsgBase.h"
#include "diag/Render.h"
#include "diag/Summaries.h"

namespace zelvaro::check {
namespace {

constexpr Message hintHead = notice("text-hint", args(), {.ja = "ヒント： ", .en = "Hint : "});
constexpr Message hintLineHead = notice("text-hint-line", args("number"),
                                        {.ja = "ヒント： {number} 行目： ", .en = "Hint : line {number}: "});

Shade shadeOf(Severity severity) {
  switch (severity) {
    case Severity::Error:
      return Shade::Error;
    case Severity::Warning:
      return Shade::Warning;
    case Severity::Note:
    case Severity::Memo:
      return Shade::Note;
    case Severity::Notice:
      break;
  }
  return Shade::Plain;
}

/// Renders the messages of the sums, which belong to no stage.
class SummarySink : public DiagSink {
 public:
  SummarySink(Language language, Channel& channel) : language_(language), channel_(channel) {}
  void take(const Diagnostic& d) override { channel_.err(render(d, {language_, FamilyId::WP})); }

 private:
  Language language_;
  Channel& channel_;
};

class Text : public LineFormat {
 public:
  explicit Text(Language language) : language_(language) {}

  void findings(const FileResult& result, Channel& channel) const override {
    if (!result.assembled) {
      showFault(result, channel);
      return;
    }
    for (const engine::Finding& f : result.assembled->findings()) show(f, channel);
    sumUp(result.assembled->tallies(), channel);
  }

  void afterRun(const FileResult& result, Channel& channel) const override {
    if (result.run) {
      for (const RunMessage& m : result.run->messages) show(m.finding, channel);
      for (const Remark& r : result.run->remarks) channel.err(r.text.in(language_) + "\n");
    }
    for (const Remark& hint : result.hints) {
      channel.err(hint.line > 0 ? say(language_, hintLineHead, hint.line) : say(language_, hintHead),
                  Shade::Note);
      channel.err(hint.text.in(language_) + "\n");
    }
    if (result.assembled) showFault(result, channel);
  }

 private:
  void showFault(const FileResult& result, Channel& channel) const {
    if (result.fault) channel.err("zelvaro-check: " + result.fault->text.in(language_) + "\n");
  }
  /// The printed text in pieces: line breaks, head, the quoted text.
  void show(const engine::Finding& f, Channel& channel) const {
    std::string_view rest = f.printed.in(language_);
    const auto pass = [&](std::size_t size, Shade shade) {
      if (size > 0) channel.err(rest.substr(0, size), shade);
      rest.remove_prefix(size);
    };
    pass(std::min(rest.find_first_not_of('\n'), rest.size()), Shade::Plain);
    const std::string_view head = engine::headOf(f.severity, language_);
    if (!head.empty() && rest.starts_with(head)) pass(head.size(), shadeOf(f.severity));
    const std::string quoted = '"' + f.quoted + '"';
    const std::size_t at = f.quoted.empty() ? rest.npos : rest.find(quoted);
    if (at != rest.npos) {
      pass(at, Shade::Plain);
      pass(quoted.size(), Shade::Quote);
    }
    pass(rest.size(), Shade::Plain);
  }
  void sumUp(const engine::Tallies& t, Channel& channel) const {
    SummarySink sink(language_, channel);
    TMsgBase sums(sink);
    sums.ErrorKazu = t.errors;
    sums.WarningKazu = t.warnings;
    sums.NoteKazu = t.notes;
    sums.MemoKazu = t.memos;
    SumUpErrors(sums);
    SumUpWarnings(sums);
  }

  Language language_;
};

}  // namespace

std::unique_ptr<LineFormat> textFormat(Language language) {
  return std::make_unique<Text>(language);
}

RowList rowsOfFormatText() {
  return rows(hintHead, hintLineHead);
}

}  // namespace zelvaro::check
