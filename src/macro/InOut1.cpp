// InOut1: the two labels of an IN or OUT.  Only labels of the own program count.
#include "diag/Quote.h"
#include "macro/InOutOprnd.h"
#include "macro/Macro.h"
#include "structure/ZenKaku.h"

namespace zelvaro {
namespace {

constexpr Message undefinedFirst{
    Severity::Error,
    Head::Line,
    args("quote"),
    {.ja = "アドレス定数 {quote} と一致するラベルが存在しない。\nラベルのミススペリングではありませんか？ ",
     .en =
         "{quote} is an undefined address constant. \nNo label or program name matches the address constant. \n"
         "Make sure of your spelling of {quote}. "},
    {{families(FamilyId::NWW),
      {.ja = {},
       .en = "{quote} is an undefined address contant. \n"
             "The address constant does not match any existing label or program name. \n"
             "Make sure of your spelling of {quote}. "}},
     {families(FamilyId::AP),
      {.ja = {},
       .en = "{quote} : Undefined address contant. \n"
             "An address constant does not match any existing label or program name. "}},
     {families(FamilyId::NA),
      {.ja = {},
       .en = "{quote} : Undefined address contant. \n"
             "The address constant does not mache any existing label or program name. "}}}};
constexpr Message undefinedSecond{
    Severity::Error,
    Head::Line,
    args("quote"),
    {.ja = "アドレス定数 {quote} と一致するラベルが存在しない。",
     .en = "{quote} is an undefined address constant. \n"
           "No label or program name matches the address constant. "},
    {{families(FamilyId::NWW),
      {.ja = {},
       .en = "{quote} is an undefined address contant. \n"
             "The address constant does not match any existing label or program name. "}},
     {families(FamilyId::AP),
      {.ja = {},
       .en = "{quote}Undefined address constant. \n"
             "An address constant does not match any existing label or program name. "}},
     {families(FamilyId::NA),
      {.ja = {},
       .en = "{quote}Undefined address constant. \n"
             "The address constant does not mache any existing label or program name. "}}}};
constexpr Message missing{Severity::Error,
                          Head::Line,
                          args("op"),
                          {.ja = "{op} はオペランドを二つ必要とする。　", .en = "{op} takes two operands. "}};
constexpr Message noAddress{
    Severity::Error,
    Head::Line,
    args("quote"),
    {.ja = "{quote} はアドレス定数ではない。", .en = "{quote} is not an address constant. "}};

/// Tells what an operand is that no label matches.
template <class Family>
void tellUnmatched(Assembly& a, SrcOf<Family>& line, int n) {
  const ViewOf<Family> p = line.Oprnd[static_cast<std::size_t>(n)];
  if (isRegisterOprnd(p)) return;  // address3_ck has told it
  if (p.empty()) {
    if (a.cs.ErrorKazu == 0) a.cs.report<Family, missing>(line.Line, plain(line.OpStr));
  } else if (!isCapital(p.front())) {
    a.cs.report<Family, noAddress>(line.Line, quote(p));
  } else if (n == 1) {
    a.cs.report<Family, undefinedFirst>(line.Line, quote(p));
  } else {
    a.cs.report<Family, undefinedSecond>(line.Line, quote(p));
  }
}

/// The address of the label that operand n names goes to `adr`.  False after a fault.
template <class Family>
bool findOprnd(Assembly& a, SrcOf<Family>& line, int n, std::int32_t& adr) {
  const int label = a.program<Family>(line.PrgNr).findLabel(line.Oprnd[static_cast<std::size_t>(n)]);
  if (label < 0) {
    tellUnmatched<Family>(a, line, n);
    return false;
  }
  SrcOf<Family>& target = a.store<Family>()[label];
  target.IsLabelInUse = true;
  adr = target.AbAdr;
  return true;
}

}  // namespace

template <class Family>
void InOut1(Assembly& a, SrcOf<Family>& line) {
  line.IsWordsComplete = false;
  if (!line.hasOprnd(0)) return;
  if (!findOprnd<Family>(a, line, 1, line.Word1)) return;
  if (!line.hasOprnd(2)) return;
  line.IsWordsComplete = findOprnd<Family>(a, line, 2, line.Word2);
}

#define ZELVARO_INSTANTIATE(F) template void InOut1<F>(Assembly&, SrcOf<F>&);
ZELVARO_FAMILIES(ZELVARO_INSTANTIATE)

}  // namespace zelvaro
