// The coarse test of START and END: whether the words stand anywhere at all, in the right order.
#include "structure/Structure.h"
#include "structure/Words.h"
#include "structure/ZenKaku.h"

namespace zelvaro {
namespace {

constexpr Message noStart{
    Severity::Error,
    Head::Bare,
    args(),
    {.ja = "START アセンブラ命令 が どこにもない。",
     .en = "START directive is not found anywhere. \nSTART assembler instruction is expected. "},
    {{kNarrow,
      {.ja = {},
       .en = "START description is not found anywhere. \nSTART assembler instruction is expected. "}}}};
constexpr Message noEnd{
    Severity::Error,
    Head::Bare,
    args(),
    {.ja = "END アセンブラ命令 が どこにもない。",
     .en = "END directive is not found anywhere. \nEND assembler instruction is expected. "}};
constexpr Message endBeforeStart{Severity::Error,
                                 Head::Line,
                                 args(),
                                 {.ja = "START アセンブラ命令 の後の行に END アセンブラ命令が必要。",
                                  .en = "END is expected to be followed after START. "}};

/// The last record whose working text holds the word anywhere, a label or a comment included, or -1.
template <class Char>
int lastHolding(const LineStore<Char>& store, std::string_view word) {
  const auto lines = store.lines();
  for (std::size_t i = lines.size(); i > 0; --i)
    if (find(lines[i - 1].SrcWork, word) != lines[i - 1].SrcWork.npos) return static_cast<int>(i - 1);
  return -1;
}

}  // namespace

template <class Family>
int StartEnd10(Assembly& a) {
  const auto& store = a.store<Family>();
  const int start = lastHolding(store, "START");
  if (start < 0) {
    a.sh.report<Family, noStart>(0);
    DetSTARTatZenKakuSpace<Family>(a);
    CkSTART_LR<Family>(a);
    return -1;
  }
  const int end = lastHolding(store, "END");
  if (end < 0) {
    a.sh.report<Family, noEnd>(0);
    DetENDatZenKakuSpace<Family>(a);
    CkEnd_LR<Family>(a);
    return -1;
  }
  if (end >= start) return 0;
  a.sh.report<Family, endBeforeStart>(store[start].Line);
  return -1;
}

#define ZELVARO_INSTANTIATE(F) template int StartEnd10<F>(Assembly&);
ZELVARO_FAMILIES(ZELVARO_INSTANTIATE)

}  // namespace zelvaro
