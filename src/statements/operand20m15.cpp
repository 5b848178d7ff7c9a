// Operand extraction: splits the operand text into at most four operands, character by character.  The scan
// knows blanks, commas and the literal character constant ='...'; all other characters are copied.
//
//   `GR1,A , GR2`  gives  `GR1,`  `A,`  `GR2`
//
// An operand keeps its trailing comma.
#include "diag/Quote.h"
#include "statements/Statements.h"

namespace zelvaro {
namespace {

constexpr Message literalNotClosed{
    "operand-literal-open",
    Severity::Error,
    Head::Line,
    args("quote"),
    {.ja = "{quote}: リテラル文字定数が正しく閉じていない。",
     .en = "{quote}: The literal string constant is not correctly closed. "},
    {{kNH, {.ja = {}, .en = "{quote}: This literal character constant is not correctly closed. "}}}};
constexpr Message textAfterLiteral{"operand-literal-text",
                                   Severity::Error,
                                   Head::Line,
                                   args("quote"),
                                   {.ja = "{quote}: リテラル文字定数が正しく閉じていない。 ",
                                    .en = "{quote}: A literal charcter constant is not correctly closed. "}};

constexpr std::size_t kLastOprnd = 4;

/// The operand text without the blanks directly after its first equal sign: `= 5` is the literal =5.
template <class Char>
std::basic_string_view<Char> joinLiteral(TextArena<Char>& arena, std::basic_string_view<Char> text) {
  const std::size_t head = text.find(Char('=')) + 1;  // 0 if there is none
  if (head == 0 || head == text.size() || !isBlank(text[head])) return text;
  const std::basic_string_view<Char> rest = trimLeft(text.substr(head));
  Char* at = arena.allocate(head + rest.size());
  std::copy(rest.begin(), rest.end(), std::copy_n(text.begin(), head, at));
  return {at, head + rest.size()};
}

/// The scan over one line: the source, the read position and the number of the current operand.
template <class Char>
class OprndScan {
 public:
  using View = ViewOf<Char>;

  OprndScan(Assembly& a, SrcData<Char>& line)
      : a_(a), line_(line), source_(joinLiteral(a.store<Char>().arena, line.Oprnd[0])) {}

  void run() {
    while (!source_.empty()) {
      if (k_ == kLastOprnd) {
        line_.Oprnd[k_] = source_.substr(at_);
        break;
      }
      if (ExtractOprnd5() || at_ == source_.size()) break;
    }
  }

 private:
  bool isAt(std::size_t i, char c) const { return i < source_.size() && source_[i] == Char(c); }
  bool isBlankAt(std::size_t i) const { return i < source_.size() && isBlank(source_[i]); }
  void skipBlanks() {
    while (isBlankAt(at_)) ++at_;
  }

  /// Extracts one operand.  True if the operand text ends after it.
  bool ExtractOprnd5() {
    const std::size_t begin = at_;
    for (;;) {
      if (at_ == source_.size() || isAt(at_, ',') || (isBlankAt(at_) && isAt(at_ + 1, ',')))
        return endOprnd(begin);
      if (isAt(at_, '=') && isAt(at_ + 1, '\'')) {
        // After a fault the rest is read as a new operand into the same buffer.
        if (!passCharConst(begin)) return false;
      } else if (isBlankAt(at_)) {
        line_.Oprnd[k_++] = source_.substr(begin, at_++ - begin);
        return false;
      } else {
        ++at_;
      }
    }
  }

  bool endOprnd(std::size_t begin) {
    const std::size_t end = at_;
    skipBlanks();
    if (at_ == source_.size()) {
      line_.Oprnd[k_++] = source_.substr(begin, end - begin);
      return true;
    }
    line_.Oprnd[k_++] = at_ == end ? source_.substr(begin, end + 1 - begin) : withComma(begin, end);
    ++at_;
    skipBlanks();
    return false;
  }

  /// An operand whose comma follows blanks.
  View withComma(std::size_t begin, std::size_t end) {
    Char* text = a_.store<Char>().arena.allocate(end - begin + 1);
    *std::copy_n(source_.begin() + static_cast<std::ptrdiff_t>(begin), end - begin, text) = Char(',');
    return {text, end - begin + 1};
  }

  /// Skips ='...' at the read position.  False after a fault, with the read position at the end of the source
  /// or at the apostrophe that should have closed the constant.
  bool passCharConst(std::size_t begin) {
    at_ += 2;
    for (;;) {
      while (at_ < source_.size() && !isAt(at_, '\'')) ++at_;
      if (at_ == source_.size()) {
        line_.Oprnd[k_] = source_.substr(begin);
        a_.cs.report(literalNotClosed, line_.Line, quote(line_.Oprnd[0]));
        return false;
      }
      if (!isAt(at_ + 1, '\'')) break;
      at_ += 2;
    }
    if (at_ + 1 == source_.size() || isAt(at_ + 1, ',') || isBlankAt(at_ + 1)) {
      ++at_;
      return true;
    }
    a_.cs.report(textAfterLiteral, line_.Line, quote(line_.Oprnd[0]));
    return false;
  }

  Assembly& a_;
  SrcData<Char>& line_;
  View source_;
  std::size_t at_ = 0;
  std::size_t k_ = 1;
};

}  // namespace

template <class Char>
void operand20m15(Assembly& a, int prg) {
  for (SrcData<Char>& line : a.store<Char>().linesBeforeEnd(a.program<Char>(prg)))
    if (line.OpNr >= 0 && opOf(line) != Op::DC && !line.OprndComStr.empty() && line.hasOprnd(0))
      OprndScan<Char>(a, line).run();
}

template void operand20m15<char16_t>(Assembly&, int);
template void operand20m15<char>(Assembly&, int);

RowList rowsOfOperand20m15() {
  return rows(literalNotClosed, textAfterLiteral);
}

}  // namespace zelvaro
