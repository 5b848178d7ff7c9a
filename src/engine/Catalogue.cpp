#include "engine/Catalogue.h"

namespace zelvaro {

// The names of all files with messages, by folder.
// clang-format off
#define ZELVARO_FILES(X)                                                                                        \
  /* source */     X(BasicData) X(Detect) X(Load) X(NarrowText) X(OpenFileChH) X(OpenFileW) X(Paths)              \
  /* structure */  X(CkLabelDouble) X(CkLabelInUse) X(CkPrgName) X(CkPrgNameDouble) X(CkPrgNameInUse)             \
                   X(Edit) X(Edit30c) X(Edit50) X(IsAnySrcOutside) X(Label35G) X(StartEnd) X(StartEnd10)          \
                   X(StartEnd20) X(TakeOutLabelStr) X(ZenKakuStartEnd) X(ZenKakuWord)                             \
  /* statements */ X(CkOpStr) X(Operand20m15)                                                                     \
  /* encode */     X(AdrName) X(AdrNumber) X(AnalystReg) X(CkAdrConst22) X(CkAdrOperand) X(CkOpTypeOprndOne)      \
                   X(CkStartAdrOperand) X(DspSyntaxErrorMsg) X(Encoders) X(GRxLabelAll) X(LiteralValue)           \
                   X(MissingOprnd) X(Numbers) X(OpNoOperand) X(R2) X(RegX)                                        \
  /* macro */      X(Address3Ck) X(InOut1) X(Macro2) X(MacroR2)                                                   \
  /* data */       X(CkDC33) X(CkLiteral15) X(CkStrConstLiteral) X(DS) X(Dcds10) X(OprndAtDC) X(OprndAtDCtoChH)   \
                   X(SetMryInAtDC) X(SetWordKazuAtDC) X(TakeOutOprndsAtDC)                                        \
  /* link */       X(AdrCk53) X(CkMaxMemory) X(CkMaxMrySize) X(Link31) X(SetMemory10)                             \
  /* comet2 */     X(Guards) X(Run) X(Services)                                                                   \
  /* report */     X(DspRegMry)                                                                                   \
  /* diag */       X(FailureWords) X(Summaries)                                                                   \
  /* TimeVcl */    X(TimeVcl)
// clang-format on

#define ZELVARO_DECLARE(file) RowList rowsOf##file();
ZELVARO_FILES(ZELVARO_DECLARE)
#undef ZELVARO_DECLARE

std::vector<CatalogueFile> allFiles() {
#define ZELVARO_ENTRY(file) {#file, rowsOf##file()},
  return {ZELVARO_FILES(ZELVARO_ENTRY)};
#undef ZELVARO_ENTRY
}

RowList allRows() {
  RowList all;
  for (const CatalogueFile& file : allFiles()) all.insert(all.end(), file.rows.begin(), file.rows.end());
  return all;
}
#undef ZELVARO_FILES

}  // namespace zelvaro
