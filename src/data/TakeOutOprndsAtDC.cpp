// Splits the operand text of a DC at its commas, one element per operand.
#include <algorithm>

#include "data/DC.h"
#include "data/StrConst.h"
#include "diag/Limits.h"

namespace zelvaro {
namespace {

constexpr Message tooManyOprnds{
    "dc-operands-many",
    Severity::Error,
    Head::Line,
    args("count", limit("most", kFixedDcOprnds)),
    {.ja =
         "DC オペランドの数は、一行につき {most} 個に制限されています。（Zelvaro の独自仕様）{count} 個あります。"
         "DC オペランドの個数を削減する必要があります。 ",
     .en = "There are too many operands of DC instruction. "
           "The number of the DC operands is limited to {most} in a line (Spec. of Zelvaro). "
           "There are {count} operands. Decrease the number of the operands in the line. "}};

/// Appends the operands of a text.  No operand follows a comma at its end.
template <class Char>
void append(std::vector<OprndAtDC<Char>>& pool, std::basic_string_view<Char> text) {
  for (std::size_t begin = 0; begin < text.size();) {
    const bool isStrConst = text[begin] == Char('\'');
    const std::size_t comma = text.find(Char(','), isStrConst ? DetStrConstGL10(text, begin) : begin);
    const std::size_t end = std::min(comma, text.size());
    OprndAtDC<Char>& oprnd = pool.emplace_back();
    oprnd.ConstStr = text.substr(begin, end - begin);
    oprnd.DataType = isStrConst ? ConstKind::CharConst : ConstKind::Const;
    begin = end + 1;
  }
}

}  // namespace

template <class Char>
bool TakeOutOprndsAtDC10(Assembly& a, SrcData<Char>& line) {
  auto& pool = a.store<Char>().vecOprndAtDC;
  line.DcFirst = static_cast<std::int32_t>(pool.size());
  append(pool, line.Oprnd[0]);
  const auto count = static_cast<int>(std::ssize(pool)) - line.DcFirst;
  line.DcCount = count;
  if (static_cast<std::size_t>(count) > a.family.mostDcOprnds) {
    a.cs.report(tooManyOprnds, line.Line, count);
    return false;
  }
  return CkDC33(a, line) == 0;
}

template bool TakeOutOprndsAtDC10<char16_t>(Assembly&, SrcData<char16_t>&);
template bool TakeOutOprndsAtDC10<char>(Assembly&, SrcData<char>&);

RowList rowsOfTakeOutOprndsAtDC() {
  return rows(tooManyOprnds);
}

}  // namespace zelvaro
