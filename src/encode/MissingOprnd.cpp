// A missing operand: each mnemonic asks for it in words of its own.
#include "encode/Encoders.h"

namespace zelvaro {
namespace {

constexpr std::uint8_t kNarrow = families(FamilyId::AP, FamilyId::NA);

consteval Message missing(Words words, std::initializer_list<OtherWords> others = {}) {
  return Message{Severity::Error, Head::Line, args(), words, others};
}

constexpr Message missingLdFirst = missing({.ja = "LD命令の第1オペランドを示すレジスター名(GR0-GR7)が必要。",
                                            .en = "The 1st operand(GR0-GR7) of LD is expected. "});
constexpr Message missingLd = missing(
    {.ja = "LD命令の第2オペランドを示すレジスター名又はアドレス定数（ラベル）が必要。",
     .en = "The 2nd operand of LD should be either an address constant(label) or GR0-GR7. "},
    {{families(FamilyId::NWW),
      {.ja = "ロード LD 元を示すレジスター名又はアドレス名（ラベル）が必要。", .en = {}}},
     {kNarrow, {.ja = "LD の第2オペランドを示すレジスター名又はアドレス名（ラベル）が必要。", .en = {}}}});
constexpr Message missingSt = missing(
    {.ja = "ストア ST 先を示す記述が必要。", .en = "The 2nd operand is expected for the ST instruction. "});
constexpr Message missingLad =
    missing({.ja = "LAD するアドレスを示す記述が必要。", .en = "The 2nd operand of LAD is expected. "});
constexpr Message missingAdda = missing(
    {.ja = "算術加算 ADDA 元を示すレジスター名又はアドレス名（ラベル）が必要。",
     .en = "ADDA Add Arithmetic: Either a general register or a label is expected as the 2nd operand. "},
    {{kNarrow,
      {.ja = {},
       .en = " The 2nd operand is expected. It is either a general register(GRx) "
             " or an adress constant(label)."}}});
constexpr Message missingSuba = missing(
    {.ja = "算術減算命令  SUBA の２番目のオペランドを示すレジスター名又はアドレス名（ラベル）が必要。",
     .en = "SUBA: Either a general register or an address constant is expected "
           "as the 2nd operand of the SUBA. "},
    {{kNarrow, {.ja = "算術減算 SUBA 元を示すレジスター名又はアドレス名（ラベル）が必要。", .en = {}}}});
constexpr Message missingAddl = missing(
    {.ja = "論理加算命令 ADDL のオペランドとして\nレジスター名またはアドレス定数（ラベル）が必要。\n",
     .en = "The 2nd operand is expected. \n"
           "It is either a general register or an address constant, that is, a label. \n"},
    {{families(FamilyId::NWW),
      {.ja = "論理加算 ADDL 元を示すレジスター名又はアドレス名（ラベル）が必要。",
       .en = ": ADDL Add Logical: It is either a general register or a label (an address constant). "}}});
constexpr Message missingSubl = missing(
    {.ja = "論理減算 SUBL の２番目のレジスター名又はアドレス名（ラベル）が必要。",
     .en = "Either a general register or an address constant is expected as the 2nd operand of the SUBL. "});
constexpr Message missingAnd =
    missing({.ja = "論理積 AND の第２オペランドを示すレジスター名又はアドレス名（ラベル）が必要。",
             .en = "Either GRn or an address constant (or a label) is expected as the 2nd operand of AND. "});
constexpr Message missingOr =
    missing({.ja = "論理和命令  OR の右にレジスター名又はアドレス名（ラベル）が必要。",
             .en = "Either a general register or an address constan is expected as the 2nd operand of OR. "});
constexpr Message missingXor = missing(
    {.ja = "排他的論理和 XOR 元を示すレジスター名又はアドレス名（ラベル）が必要。",
     .en = "Either a general register or a label is expected as the 2nd operand. "},
    {{kNarrow,
      {.ja = "排他的論理和 XOR 第二オペランド示すレジスター名又はアドレス名（ラベル）が必要。", .en = {}}}});
constexpr Message missingCpa = missing(
    {.ja = "算術比較 CPA の第2オペランドとしてレジスター名又はアドレス名（ラベル）が必要。",
     .en = "Compare Arithmetic CPA needs the 2nd operand. "
           "It is either a general register or an address constant(or a label) . "},
    {{kNarrow,
      {.ja = {},
       .en = "Compare Arithmetic CPA takes either a general register or an address constant(or a label) "
             "as the 2nd operand. "}}});
constexpr Message missingCpl =
    missing({.ja = "論理比較 CPL 元を示すレジスター名又はアドレス名（ラベル）が必要。",
             .en = "An operand is expected at the right side of the CPL."
                   "The operand is either a GRn or an address constant or a label. "});
constexpr Message missingSla =
    missing({.ja = "算術左シフト SLA するビット数を示すアドレス定数の記述が必要。",
             .en = "SLA : An address constant is expected as the 2nd operand. "
                   "It specifies the number of shift-left arithmetic conversion. "});
constexpr Message missingSra =
    missing({.ja = "算術右シフト SRA するビット数を示すアドレスの記述が必要。",
             .en = "SRA: An address constant is expected as the 2nd operand of the SRA.  "
                   "It specifies the number of shift-right arithmetic conversion. "});
constexpr Message missingSll =
    missing({.ja = "論理左シフト SLL するビット数を示すアドレスの記述が必要。",
             .en = "An address constant is expected as the 2nd operand of the SLL, "
                   "which specifies the number of shift-left logical conversion. "});
// The one English head of this file that ends in a blank.
constexpr Message missingSrl{Severity::Error,
                             Head::LineBlank,
                             args(),
                             {.ja = "論理右シフト SRL するビット数を示すアドレスの記述が必要。",
                              .en = "SRL : An address constant is expected as the 2nd operand of the SRL, "
                                    "which specifies the number of shift-right logical conversion. "}};

}  // namespace

template <class Family>
void MissingFirstOprnd(Assembly& a, const SrcOf<Family>& line) {
  a.cs.report<Family, missingLdFirst>(line.Line);
}

template <class Family>
void MissingSecondOprnd(Assembly& a, const SrcOf<Family>& line) {
  TCorrectScode& cs = a.cs;
  const int n = line.Line;
  switch (opOf(line)) {
    case Op::LD:
      return cs.report<Family, missingLd>(n);
    case Op::ST:
      return cs.report<Family, missingSt>(n);
    case Op::LAD:
      return cs.report<Family, missingLad>(n);
    case Op::ADDA:
      return cs.report<Family, missingAdda>(n);
    case Op::SUBA:
      return cs.report<Family, missingSuba>(n);
    case Op::ADDL:
      return cs.report<Family, missingAddl>(n);
    case Op::SUBL:
      return cs.report<Family, missingSubl>(n);
    case Op::AND:
      return cs.report<Family, missingAnd>(n);
    case Op::OR:
      return cs.report<Family, missingOr>(n);
    case Op::XOR:
      return cs.report<Family, missingXor>(n);
    case Op::CPA:
      return cs.report<Family, missingCpa>(n);
    case Op::CPL:
      return cs.report<Family, missingCpl>(n);
    case Op::SLA:
      return cs.report<Family, missingSla>(n);
    case Op::SRA:
      return cs.report<Family, missingSra>(n);
    case Op::SLL:
      return cs.report<Family, missingSll>(n);
    case Op::SRL:
      return cs.report<Family, missingSrl>(n);
    default:
      return;
  }
}

#define ZELVARO_INSTANTIATE(F)                                    \
  template void MissingFirstOprnd<F>(Assembly&, const SrcOf<F>&); \
  template void MissingSecondOprnd<F>(Assembly&, const SrcOf<F>&);
ZELVARO_FAMILIES(ZELVARO_INSTANTIATE)

}  // namespace zelvaro
