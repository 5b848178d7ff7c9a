#include "check/Explain.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>

#include "MoziCode/Utf.h"
#include "check/CheckRows.h"
#include "check/Formats.h"
#include "check/Lines.h"

namespace zelvaro::check {
namespace {

constexpr Message noSuchCode =
    notice("usage-code", args("code"),
           {.ja = "{code} というコードのメッセージはない。--list-codes で一覧を表示します。",
            .en = "No message has the code {code}. --list-codes lists them."});
constexpr Message checkedBy =
    notice("explain-where", args("where"), {.ja = "調べる所: {where}\n", .en = "Checked by: {where}\n"});
constexpr Message faultyHead = notice("explain-faulty", args("pipeline"),
                                      {.ja = "誤りの例 ({pipeline}):\n", .en = "Faulty ({pipeline}):\n"});
constexpr Message mendedHead = notice("explain-mended", args(), {.ja = "直した例:\n", .en = "Mended:\n"});

constexpr std::array kExamples{
#define ZELVARO_EXAMPLE(code, pipeline, frame, faulty, mended) \
  Example{code, FamilyId::pipeline, Frame::frame, faulty, mended},
#include "check/Explain.def"
#undef ZELVARO_EXAMPLE
};

/// Replaces each {N:text} by the text N times, from the innermost one outward.
std::string repeated(std::string text) {
  for (std::size_t open; (open = text.rfind('{')) != text.npos;) {
    const std::size_t colon = text.find(':', open), close = text.find('}', open);
    int times = 0;
    std::from_chars(text.data() + open + 1, text.data() + colon, times);
    const std::string part = text.substr(colon + 1, close - colon - 1);
    std::string all;
    for (int i = 0; i < times; ++i) all += part;
    text.replace(open, close + 1 - open, all);
  }
  return text;
}

/// The lines of an example as they are shown; a long line is cut.
std::string shown(std::string_view text) {
  constexpr std::size_t kMost = 70;
  std::string out;
  // bytes that are no text are shown as U+FFFD
  for (const std::string& line : linesOfText(toUtf8(toUtf16(repeated(std::string(text))))))
    out += "    " + (line.size() > kMost ? line.substr(0, kMost) + "..." : line) + '\n';
  return out;
}

struct Code {
  std::string_view code, severity, where;
  std::string_view ja, en;
};

std::vector<Code> allCodes(FamilyId pipeline) {
  std::vector<Code> out;
  for (const engine::CodeInfo& c : engine::codes(pipeline))
    out.push_back(
        {c.code, c.severity == Severity::Notice ? "notice" : severityName(c.severity), c.where, c.ja, c.en});
  for (const MessageRow* row : checkRows())
    out.push_back({row->code, row->code.starts_with("hint-") ? "hint" : "notice", "zelvaro-check",
                   row->text(pipeline, Language::Japanese), row->text(pipeline, Language::English)});
  return out;
}

/// Each line with blanks in front, without the empty ones.
std::string wordsLines(std::string_view language, std::string_view words) {
  std::string out = fmt::format("{}:\n", language);
  for (const std::string& line : linesOfText(words))
    if (line.find_first_not_of(' ') != line.npos) out += "    " + line + '\n';
  return out;
}

}  // namespace

std::span<const Example> examples() {
  return kExamples;
}

std::string sourceOf(Frame frame, std::string_view text) {
  std::u16string characters;
  // a short text in full-width characters is not known as UTF-8 without its mark
  const bool isMarked = !isAscii(text) && utf8ToUtf16(text, characters);
  const std::string mark(isMarked ? kUtf8Mark : "");
  const std::string lines = repeated(std::string(text)) + '\n';
  switch (frame) {
    case Frame::Line:
      return mark + "MAIN START\n" + lines + " RET\nA DC 5\nB DS 8\nN DC 2\n END\n";
    case Frame::Data:
      return mark + "MAIN START\n RET\n" + lines + " END\n";
    case Frame::Whole:
      break;
  }
  return mark + lines;
}

std::optional<std::string> explanation(const Options& options) {
  const Language l = options.language;
  const std::vector<Code> codes = allCodes(options.pipeline);
  const auto code = std::ranges::find(codes, options.explain, &Code::code);
  if (code == codes.end()) return std::nullopt;
  std::string out = fmt::format("{} ({})\n", code->code, code->severity);
  out += wordsLines("en", code->en) + wordsLines("ja", code->ja) + say(l, checkedBy, code->where);
  const auto example = std::ranges::find(kExamples, options.explain, &Example::code);
  if (example == kExamples.end()) return out;
  return out + say(l, faultyHead, family(example->pipeline).name) + shown(example->faulty) +
         say(l, mendedHead) + shown(example->mended);
}

std::string unknownCode(const Options& options) {
  return say(options.language, noSuchCode, options.explain);
}

std::string codesText(const Options& options) {
  std::string out;
  for (const Code& c : allCodes(options.pipeline)) {
    const std::string_view words = options.language == Language::Japanese ? c.ja : c.en;
    std::string first;
    for (const std::string& line : linesOfText(words))
      if (first.empty()) first = line.substr(std::min(line.find_first_not_of(' '), line.size()));
    out += fmt::format("{:<28} {:<8} {}\n", c.code, c.severity, first);
  }
  return out;
}

RowList rowsOfExplain() {
  return rows(noSuchCode, checkedBy, faultyHead, mendedHead);
}

}  // namespace zelvaro::check
