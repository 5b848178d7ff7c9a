// Only comments may be between two programs.  Text before the first and after the last program is not
// checked.
#include "diag/Quote.h"
#include "structure/Structure.h"
#include "structure/ZenKaku.h"

namespace zelvaro {
namespace {

constexpr Message textBetween{
    "outside-text",
    Severity::Error,
    Head::Line,
    args("quote"),
    {.ja = "{quote}プログラムとプログラムの間にソースコードがある。END 命令と次のプログラムの STRAT "
           "命令の間に不明の文字がある。コメント記号(;)を前置する、あるいは、削除する。",
     .en = "{quote}: There are some unknown string between two programs. \n"
           "There are some unknown string between END and START. \n"
           "It should be deleted. Or a comment mark(;) is expected at the left side of the description."},
    {{kNH,
      {.ja = {},
       .en = "{quote}: There are some unknown string between programs. \n"
             "It should be deleted. Or a comment mark(;) is expected at the left side. "}}}};
constexpr Message itIsZenKakuSpace =
    Message{"outside-full-width-space",
            Severity::Error,
            Head::None,
            args(),
            {.ja = "それは「全角の空白」文字である。\n"
                   "「全角の空白」文字は、コメントの中を除き、CASL2では使うことができない。 ",
             .en = "It is not a 1-byte space, but a 2-byte one.  \n"
                   "A 2-byte space is not allowed for use in CASL2. "}}
        .continued();

}  // namespace

template <class Char>
void IsAnySrcOutsideSartEnd(Assembly& a) {
  const auto& store = a.store<Char>();
  for (std::size_t k = 0; k + 1 < store.vecPrg.size(); ++k) {
    const int record = store.vecPrg[k].RecEnd + 1;
    if (record >= store.vecPrg[k + 1].RecStart) continue;
    // no record is blank, so the first one is the finding
    const auto& line = store[record];
    a.cs.report(textBetween, line.Line, quote(line.SrcStr));
    if (trim(line.SrcWork) == zenKakuSpace<Char>()) a.cs.report(itIsZenKakuSpace, line.Line);
    return;
  }
}

template void IsAnySrcOutsideSartEnd<char16_t>(Assembly&);
template void IsAnySrcOutsideSartEnd<char>(Assembly&);

RowList rowsOfIsAnySrcOutside() {
  return rows(textBetween, itIsZenKakuSpace);
}

}  // namespace zelvaro
