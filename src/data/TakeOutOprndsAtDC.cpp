// Splits the operand text of a DC at its commas, one element an operand.
#include <algorithm>

#include "data/DC.h"
#include "data/StrConst.h"
#include "source/FixedForm.h"

namespace zelvaro {
namespace {

constexpr Message tooManyOprnds{
    Severity::Error,
    Head::Line,
    args("count"),
    {.ja =
         "DC オペランドの数は、一行につき 20 個に制限されています。（Zelvaro の独自仕様）{count} 個あります。"
         "DC オペランドの個数を削減する必要があります。 ",
     .en = "There are too many operands of DC instruction. "
           "The number of the DC operands is limited to 20 in a line (Spec. of Zelvaro). "
           "There are {count} operands. Decrease the number of the operands in the line. "}};

/// Appends the operands of a text.  A comma at its end has no operand behind it.
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

template <class Family>
int TakeOutOprndsAtDC10(Assembly& a, SrcOf<Family>& line) {
  auto& pool = a.store<Family>().vecOprndAtDC;
  const auto first = static_cast<std::ptrdiff_t>(pool.size());
  append(pool, line.Oprnd[0]);
  const auto count = static_cast<int>(std::ssize(pool) - first);
  if (count == line.DcCount) {
    // made before: the elements go back to their old place
    std::move(pool.begin() + first, pool.end(), pool.begin() + line.DcFirst);
    pool.resize(static_cast<std::size_t>(first));
  } else {
    line.DcFirst = static_cast<std::int32_t>(first);
    line.DcCount = count;
  }
  line.OprndKazu = count;
  if (kIsFixedForm<Family> && count > kFixedDcOprnds) {
    a.cs.report<Family, tooManyOprnds>(line.Line, count);
    return 1;
  }
  return CkDC33<Family>(a, line) > 0 ? 1 : 0;
}

#define ZELVARO_INSTANTIATE(F) template int TakeOutOprndsAtDC10<F>(Assembly&, SrcOf<F>&);
ZELVARO_FAMILIES(ZELVARO_INSTANTIATE)
#undef ZELVARO_INSTANTIATE

}  // namespace zelvaro
