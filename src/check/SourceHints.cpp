// Hints that a source gives without a run.
#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <set>

#include "MoziCode/Utf.h"
#include "check/Hints.h"
#include "check/Remarks.h"
#include "encode/Instructions.h"

namespace zelvaro::check {
namespace {

constexpr Message fullWidth =
    notice("hint-full-width", args("word", "mozi", "code"),
           {.ja = "\"{word}\" の \"{mozi}\" は全角文字 ({code}) である。半角文字で書く。",
            .en = "\"{mozi}\" in \"{word}\" is a full-width character ({code}). Write it in half width."});
constexpr Message lowerCase = notice("hint-lower-case", args("word", "upper"),
                                     {.ja = "\"{word}\" は大文字の \"{upper}\" なら正しい。",
                                      .en = "\"{word}\" is right in capital letters: \"{upper}\"."});

struct Word {
  std::u32string text;
  int column = 0;  ///< from 1
};

/// The statement of a line in words: those of the operands are parted by commas and the like.
struct Fields {
  std::optional<Word> label, op;
  std::vector<Word> operands;
};

bool isBlank(char32_t c) {
  constexpr char32_t kFullWidthBlank = 0x3000;
  return c == ' ' || c == '\t' || c == kFullWidthBlank;
}

std::u32string codePoints(std::string_view utf8) {
  std::u32string out;
  while (!utf8.empty()) {
    const Utf8Mozi first = decodeUtf8(utf8);
    out += first.kind == Utf8Mozi::Kind::Whole ? first.codePoint : char32_t{kReplacement};
    utf8.remove_prefix(std::max<std::size_t>(first.size, 1));
  }
  return out;
}

std::string textOf(const std::u32string& word) {
  std::string out;
  for (const char32_t c : word) appendUtf8(out, c);
  return out;
}

/// Splits a line.  A string is no word, a comment ends the line; what follows a blank after the operands is one.
class LineReader {
 public:
  explicit LineReader(const std::u32string& line) : line_(line) {}
  Fields read() {
    Fields out;
    if (!line_.empty() && !isBlank(line_[0])) out.label = word();
    skipBlanks();
    out.op = word();
    skipBlanks();
    while (at_ < line_.size() && !isBlank(line_[at_]) && line_[at_] != ';') {
      if (std::optional<Word> w = word()) {
        out.operands.push_back(*w);
      } else {
        skipSignOrString();
      }
    }
    return out;
  }

 private:
  std::optional<Word> word() {
    constexpr std::u32string_view kSigns = U";,'=#+-";
    Word w{{}, static_cast<int>(at_) + 1};
    while (at_ < line_.size() && !isBlank(line_[at_]) && kSigns.find(line_[at_]) == kSigns.npos)
      w.text += line_[at_++];
    return w.text.empty() ? std::nullopt : std::optional(w);
  }
  void skipBlanks() {
    while (at_ < line_.size() && isBlank(line_[at_])) ++at_;
  }
  void skipSignOrString() {
    if (line_[at_++] == '\'') at_ = std::min(line_.find('\'', at_), line_.size() - 1) + 1;
  }

  const std::u32string& line_;
  std::size_t at_ = 0;
};

bool isFullWidthAlnum(char32_t c) {
  return (c >= 0xFF10 && c <= 0xFF19) || (c >= 0xFF21 && c <= 0xFF3A) || (c >= 0xFF41 && c <= 0xFF5A);
}

/// The word in capital letters; empty if it has none in lower case, or others than letters and digits.
std::string raised(const std::u32string& word) {
  std::string out;
  bool isChanged = false;
  for (const char32_t c : word) {
    const bool isLower = c >= 'a' && c <= 'z';
    if (!isLower && !(c >= 'A' && c <= 'Z') && !(c >= '0' && c <= '9')) return {};
    isChanged = isChanged || isLower;
    out += static_cast<char>(isLower ? c - 'a' + 'A' : c);
  }
  return isChanged ? out : "";
}

bool isRegister(std::string_view word) {
  return word.size() == 3 && word.starts_with("GR") && word[2] >= '0' && word[2] <= '7';
}

bool isLabel(std::string_view word) {
  constexpr std::size_t kMost = 8;
  return !word.empty() && word.size() <= kMost && word[0] >= 'A' && word[0] <= 'Z' && !isRegister(word);
}

class SourceHints {
 public:
  explicit SourceHints(const engine::Assembled& assembled)
      : known_(family(assembled.options().pipeline).knowsEXIT ? Mnemonics::WithEXIT : Mnemonics::Common) {
    for (const std::string& line : assembled.sourceLines()) {
      const std::u32string text = codePoints(line);
      lines_.push_back(LineReader(text).read());
      const auto& label = lines_.back().label;
      if (!label) continue;
      const std::string upper = raised(label->text);
      labels_.insert(upper.empty() ? textOf(label->text) : upper);
    }
  }

  std::vector<Remark> make() {
    for (std::size_t i = 0; i < lines_.size(); ++i) {
      line_ = static_cast<int>(i) + 1;
      const Fields& f = lines_[i];
      if (f.label) look(*f.label, isLabel);
      if (f.op) look(*f.op, [&](const std::string& w) { return op(w) != Op::Unknown; });
      if (f.op && takesOperands(f.op->text))
        for (const Word& w : f.operands)
          look(w, [&](const std::string& u) { return isRegister(u) || labels_.contains(u); });
    }
    return std::move(hints_);
  }

 private:
  Op op(const std::string& word) const { return findOp(std::string_view(word), known_); }
  /// What follows an opcode without operands is a comment.
  bool takesOperands(const std::u32string& word) const {
    const std::string upper = raised(word);
    const Op found = op(upper.empty() ? textOf(word) : upper);
    if (found == Op::Unknown) return true;
    const OpForm form = instruction(found).form;
    return form != OpForm::None && form != OpForm::Regs && form != OpForm::End;
  }
  template <class IsRight>
  void look(const Word& word, IsRight isRight) {
    const auto wide = std::find_if(word.text.begin(), word.text.end(), isFullWidthAlnum);
    if (wide != word.text.end()) {
      const std::string code = fmt::format("U+{:04X}", static_cast<unsigned>(*wide));
      add(word, remark(fullWidth, line_, textOf(word.text), textOf({*wide}), code));
    } else if (const std::string upper = raised(word.text); !upper.empty() && isRight(upper)) {
      add(word, remark(lowerCase, line_, textOf(word.text), upper));
    }
  }
  void add(const Word& word, Remark remark) {
    remark.column = word.column;
    remark.length = static_cast<int>(word.text.size());
    hints_.push_back(std::move(remark));
  }

  Mnemonics known_;
  std::vector<Fields> lines_;
  std::set<std::string> labels_;
  int line_ = 0;
  std::vector<Remark> hints_;
};

}  // namespace

std::vector<Remark> sourceHints(const engine::Assembled& assembled) {
  return SourceHints(assembled).make();
}

RowList rowsOfSourceHints() {
  return rows(fullWidth, lowerCase);
}

}  // namespace zelvaro::check
