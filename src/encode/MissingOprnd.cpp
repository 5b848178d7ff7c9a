// A missing operand: each mnemonic has a message of its own.
#include <array>

#include "encode/Encoders.h"

namespace zelvaro {
namespace {

consteval Message<0> missing(std::string_view code, Words words,
                             std::initializer_list<OtherWords> others = {}) {
  return Message{code, Severity::Error, Head::Line, args(), words, others};
}

constexpr Message missingLdFirst =
    missing("ld-first-missing", {.ja = "LD命令の第1オペランドを示すレジスター名(GR0-GR7)が必要。",
                                 .en = "The 1st operand(GR0-GR7) of LD is expected. "});
constexpr Message missingLd = missing(
    "ld-second-missing",
    {.ja = "LD命令の第2オペランドを示すレジスター名又はアドレス定数（ラベル）が必要。",
     .en = "The 2nd operand of LD should be either an address constant(label) or GR0-GR7. "},
    {{kNWW, {.ja = "ロード LD 元を示すレジスター名又はアドレス名（ラベル）が必要。", .en = {}}},
     {kNarrow, {.ja = "LD の第2オペランドを示すレジスター名又はアドレス名（ラベル）が必要。", .en = {}}}});
constexpr Message missingSt = missing(
    "st-second-missing",
    {.ja = "ストア ST 先を示す記述が必要。", .en = "The 2nd operand is expected for the ST instruction. "});
constexpr Message missingLad = missing("lad-second-missing", {.ja = "LAD するアドレスを示す記述が必要。",
                                                              .en = "The 2nd operand of LAD is expected. "});
constexpr Message missingAdda = missing(
    "adda-second-missing",
    {.ja = "算術加算 ADDA 元を示すレジスター名又はアドレス名（ラベル）が必要。",
     .en = "ADDA Add Arithmetic: Either a general register or a label is expected as the 2nd operand. "},
    {{kNarrow,
      {.ja = {},
       .en = " The 2nd operand is expected. It is either a general register(GRx) "
             " or an adress constant(label)."}}});
constexpr Message missingSuba = missing(
    "suba-second-missing",
    {.ja = "算術減算命令  SUBA の２番目のオペランドを示すレジスター名又はアドレス名（ラベル）が必要。",
     .en = "SUBA: Either a general register or an address constant is expected "
           "as the 2nd operand of the SUBA. "},
    {{kNarrow, {.ja = "算術減算 SUBA 元を示すレジスター名又はアドレス名（ラベル）が必要。", .en = {}}}});
constexpr Message missingAddl = missing(
    "addl-second-missing",
    {.ja = "論理加算命令 ADDL のオペランドとして\nレジスター名またはアドレス定数（ラベル）が必要。\n",
     .en = "The 2nd operand is expected. \n"
           "It is either a general register or an address constant, that is, a label. \n"},
    {{kNWW,
      {.ja = "論理加算 ADDL 元を示すレジスター名又はアドレス名（ラベル）が必要。",
       .en = ": ADDL Add Logical: It is either a general register or a label (an address constant). "}}});
constexpr Message missingSubl = missing(
    "subl-second-missing",
    {.ja = "論理減算 SUBL の２番目のレジスター名又はアドレス名（ラベル）が必要。",
     .en = "Either a general register or an address constant is expected as the 2nd operand of the SUBL. "});
constexpr Message missingAnd =
    missing("and-second-missing",
            {.ja = "論理積 AND の第２オペランドを示すレジスター名又はアドレス名（ラベル）が必要。",
             .en = "Either GRn or an address constant (or a label) is expected as the 2nd operand of AND. "});
constexpr Message missingOr =
    missing("or-second-missing",
            {.ja = "論理和命令  OR の右にレジスター名又はアドレス名（ラベル）が必要。",
             .en = "Either a general register or an address constan is expected as the 2nd operand of OR. "});
constexpr Message missingXor = missing(
    "xor-second-missing",
    {.ja = "排他的論理和 XOR 元を示すレジスター名又はアドレス名（ラベル）が必要。",
     .en = "Either a general register or a label is expected as the 2nd operand. "},
    {{kNarrow,
      {.ja = "排他的論理和 XOR 第二オペランド示すレジスター名又はアドレス名（ラベル）が必要。", .en = {}}}});
constexpr Message missingCpa = missing(
    "cpa-second-missing",
    {.ja = "算術比較 CPA の第2オペランドとしてレジスター名又はアドレス名（ラベル）が必要。",
     .en = "Compare Arithmetic CPA needs the 2nd operand. "
           "It is either a general register or an address constant(or a label) . "},
    {{kNarrow,
      {.ja = {},
       .en = "Compare Arithmetic CPA takes either a general register or an address constant(or a label) "
             "as the 2nd operand. "}}});
constexpr Message missingCpl =
    missing("cpl-second-missing", {.ja = "論理比較 CPL 元を示すレジスター名又はアドレス名（ラベル）が必要。",
                                   .en = "An operand is expected at the right side of the CPL."
                                         "The operand is either a GRn or an address constant or a label. "});
constexpr Message missingSla =
    missing("sla-second-missing", {.ja = "算術左シフト SLA するビット数を示すアドレス定数の記述が必要。",
                                   .en = "SLA : An address constant is expected as the 2nd operand. "
                                         "It specifies the number of shift-left arithmetic conversion. "});
constexpr Message missingSra = missing(
    "sra-second-missing", {.ja = "算術右シフト SRA するビット数を示すアドレスの記述が必要。",
                           .en = "SRA: An address constant is expected as the 2nd operand of the SRA.  "
                                 "It specifies the number of shift-right arithmetic conversion. "});
constexpr Message missingSll =
    missing("sll-second-missing", {.ja = "論理左シフト SLL するビット数を示すアドレスの記述が必要。",
                                   .en = "An address constant is expected as the 2nd operand of the SLL, "
                                         "which specifies the number of shift-left logical conversion. "});
// The one English head of this file that ends in a blank.
constexpr Message missingSrl{"srl-second-missing",
                             Severity::Error,
                             Head::LineBlank,
                             args(),
                             {.ja = "論理右シフト SRL するビット数を示すアドレスの記述が必要。",
                              .en = "SRL : An address constant is expected as the 2nd operand of the SRL, "
                                    "which specifies the number of shift-right logical conversion. "}};

struct MissingRow {
  Op op;
  const Message<0>& second;
};

constexpr std::array kMissing{
    MissingRow{Op::LD, missingLd},     MissingRow{Op::ST, missingSt},     MissingRow{Op::LAD, missingLad},
    MissingRow{Op::ADDA, missingAdda}, MissingRow{Op::SUBA, missingSuba}, MissingRow{Op::ADDL, missingAddl},
    MissingRow{Op::SUBL, missingSubl}, MissingRow{Op::AND, missingAnd},   MissingRow{Op::OR, missingOr},
    MissingRow{Op::XOR, missingXor},   MissingRow{Op::CPA, missingCpa},   MissingRow{Op::CPL, missingCpl},
    MissingRow{Op::SLA, missingSla},   MissingRow{Op::SRA, missingSra},   MissingRow{Op::SLL, missingSll},
    MissingRow{Op::SRL, missingSrl},
};

}  // namespace

void MissingFirstOprnd(Assembly& a, int line) {
  a.cs.report(missingLdFirst, line);
}

void MissingSecondOprnd(Assembly& a, Op op, int line) {
  for (const MissingRow& row : kMissing)
    if (row.op == op) a.cs.report(row.second, line);
}

RowList rowsOfMissingOprnd() {
  return rows(missingLdFirst, missingLd, missingSt, missingLad, missingAdda, missingSuba, missingAddl,
              missingSubl, missingAnd, missingOr, missingXor, missingCpa, missingCpl, missingSla, missingSra,
              missingSll, missingSrl);
}

}  // namespace zelvaro
