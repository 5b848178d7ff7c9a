// The coarse test of START and END: whether the words occur anywhere, in the right order.
#include "structure/Structure.h"
#include "structure/Words.h"
#include "structure/ZenKaku.h"

namespace zelvaro {
namespace {

constexpr Message noStart{
    "start-nowhere",
    Severity::Error,
    Head::Bare,
    args(),
    {.ja = "START アセンブラ命令 が どこにもない。",
     .en = "START directive is not found anywhere. \nSTART assembler instruction is expected. "},
    {{kNarrow,
      {.ja = {},
       .en = "START description is not found anywhere. \nSTART assembler instruction is expected. "}}}};
constexpr Message noEnd{
    "end-nowhere",
    Severity::Error,
    Head::Bare,
    args(),
    {.ja = "END アセンブラ命令 が どこにもない。",
     .en = "END directive is not found anywhere. \nEND assembler instruction is expected. "}};
constexpr Message endBeforeStart{"end-before-start",
                                 Severity::Error,
                                 Head::Line,
                                 args(),
                                 {.ja = "START アセンブラ命令 の後の行に END アセンブラ命令が必要。",
                                  .en = "END is expected to be followed after START. "}};

/// The last record whose working text contains the word anywhere, even in a label or a comment, or -1.
template <class Char>
int lastHolding(const LineStore<Char>& store, std::string_view word) {
  const auto lines = store.lines();
  for (std::size_t i = lines.size(); i > 0; --i)
    if (find(lines[i - 1].SrcWork, word) != lines[i - 1].SrcWork.npos) return static_cast<int>(i - 1);
  return -1;
}

}  // namespace

template <class Char>
void StartEnd10(Assembly& a) {
  const auto& store = a.store<Char>();
  const int start = lastHolding(store, "START");
  if (start < 0) {
    a.sh.report(noStart, 0);
    DetSTARTatZenKakuSpace<Char>(a);
    CkSTART_LR<Char>(a);
    return;
  }
  const int end = lastHolding(store, "END");
  if (end < 0) {
    a.sh.report(noEnd, 0);
    DetENDatZenKakuSpace<Char>(a);
    CkEnd_LR<Char>(a);
    return;
  }
  if (end < start) a.sh.report(endBeforeStart, store[start].Line);
}

template void StartEnd10<char16_t>(Assembly&);
template void StartEnd10<char>(Assembly&);

RowList rowsOfStartEnd10() {
  return rows(noStart, noEnd, endBeforeStart);
}

}  // namespace zelvaro
