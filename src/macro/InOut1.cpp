// InOut1: the two labels of an IN or OUT.  Only labels of the own program count.
#include "diag/Quote.h"
#include "macro/InOutOprnd.h"
#include "macro/Macro.h"
#include "structure/ZenKaku.h"

namespace zelvaro {
namespace {

constexpr Message undefinedFirst{
    "macro-first-undefined",
    Severity::Error,
    Head::Line,
    args("quote"),
    {.ja = "アドレス定数 {quote} と一致するラベルが存在しない。\nラベルのミススペリングではありませんか？ ",
     .en =
         "{quote} is an undefined address constant. \nNo label or program name matches the address constant. \n"
         "Make sure of your spelling of {quote}. "},
    {{kNWW,
      {.ja = {},
       .en = "{quote} is an undefined address contant. \n"
             "The address constant does not match any existing label or program name. \n"
             "Make sure of your spelling of {quote}. "}},
     {kAP,
      {.ja = {},
       .en = "{quote} : Undefined address contant. \n"
             "An address constant does not match any existing label or program name. "}},
     {kNA,
      {.ja = {},
       .en = "{quote} : Undefined address contant. \n"
             "The address constant does not mache any existing label or program name. "}}}};
constexpr Message undefinedSecond{
    "macro-second-undefined",
    Severity::Error,
    Head::Line,
    args("quote"),
    {.ja = "アドレス定数 {quote} と一致するラベルが存在しない。",
     .en = "{quote} is an undefined address constant. \n"
           "No label or program name matches the address constant. "},
    {{kNWW,
      {.ja = {},
       .en = "{quote} is an undefined address contant. \n"
             "The address constant does not match any existing label or program name. "}},
     {kAP,
      {.ja = {},
       .en = "{quote}Undefined address constant. \n"
             "An address constant does not match any existing label or program name. "}},
     {kNA,
      {.ja = {},
       .en = "{quote}Undefined address constant. \n"
             "The address constant does not mache any existing label or program name. "}}}};
constexpr Message missing{"macro-operand-missing",
                          Severity::Error,
                          Head::Line,
                          args("op"),
                          {.ja = "{op} はオペランドを二つ必要とする。　", .en = "{op} takes two operands. "}};
constexpr Message noAddress{
    "macro-no-address",
    Severity::Error,
    Head::Line,
    args("quote"),
    {.ja = "{quote} はアドレス定数ではない。", .en = "{quote} is not an address constant. "}};

/// Reports what an operand is if no label matches it.
template <class Char>
void tellUnmatched(Assembly& a, SrcData<Char>& line, int n) {
  const ViewOf<Char> p = line.Oprnd[static_cast<std::size_t>(n)];
  if (isRegisterOprnd(p)) return;  // address3_ck has reported it
  if (p.empty()) {
    if (a.cs.ErrorKazu == 0) a.cs.report(missing, line.Line, plain(line.OpStr));
  } else if (!isCapital(p.front())) {
    a.cs.report(noAddress, line.Line, quote(p));
  } else if (n == 1) {
    a.cs.report(undefinedFirst, line.Line, quote(p));
  } else {
    a.cs.report(undefinedSecond, line.Line, quote(p));
  }
}

/// Stores the address of the label that operand n names in `adr`.  False after a fault.
template <class Char>
bool findOprnd(Assembly& a, SrcData<Char>& line, int n, std::int32_t& adr) {
  const int label = a.program<Char>(line.PrgNr).findLabel(line.Oprnd[static_cast<std::size_t>(n)]);
  if (label < 0) {
    tellUnmatched(a, line, n);
    return false;
  }
  SrcData<Char>& target = a.store<Char>()[label];
  target.IsLabelInUse = true;
  adr = target.AbAdr;
  return true;
}

}  // namespace

template <class Char>
void InOut1(Assembly& a, SrcData<Char>& line) {
  if (!line.hasOprnd(0) || !findOprnd(a, line, 1, line.Word1)) return;
  if (line.hasOprnd(2)) findOprnd(a, line, 2, line.Word2);
}

template void InOut1<char16_t>(Assembly&, SrcData<char16_t>&);
template void InOut1<char>(Assembly&, SrcData<char>&);

RowList rowsOfInOut1() {
  return rows(undefinedFirst, undefinedSecond, missing, noAddress);
}

}  // namespace zelvaro
