#include "diag/Family.h"

#include <array>

#include "diag/Limits.h"

namespace zelvaro {
namespace {

constexpr bool yes = true;
constexpr bool no = false;

// Five lines a family, one for each group of columns in Family.h:
//   id, name, text kind
//   text form, loader, blanks, oprndLength, warnsOfCutOprnd, prgNameLength, mostPrograms, mostDcOprnds, opLength
//   labelAlone, knowsEXIT, asksForOprndsOfLD, reportsDoubleComma, explainsDsNumber, notesLiteralRange,
//     prgNameIsEntry, prgNameInDC, ownNameIsLabel, warnsOfExternalName, nameOrder, entryAddress
//   dataPlace, linkTest, keepsWords, linksEmptyString, mostWords, runLimit, countsStart, storeWarning, report
//   keepsLog, testsEditor, savesSettings, timeLines
//
// A fixed buffer of wide text holds 225 characters; one of narrow text 250 bytes including its terminator.
//
// clang-format off
constexpr std::array kFamilies{
  Family{FamilyId::WP, "WP", "std::wstring<--UTF16",
    TextForm::Wide,   Loader::Detecting, Blanks::OneInFront,   kNoLimit, no,  kNoLimit,         kNoLimit,       kNoLimit,       kNoLimit,
    no,  no,  yes, yes, no,  no,  yes, yes, yes, yes, NameOrder::ProgramsFirst, EntryAddress::FromAddressPass,
    DataPlace::InLine,    LinkTest::AfterEachStep,  no,  no,  kGreatestImage, tMaxMemory, CountsStart::WithRun,   StoreWarning::OnceARun,       ReportForm::Wide,
    yes, yes, yes, TimeLines::General},
  Family{FamilyId::NWW, "NWW", "",
    TextForm::Wide,   Loader::Detecting, Blanks::OneInFront,   kOprndLengthRead, yes, kNoLimit,         kNoLimit,       kNoLimit,       kNoLimit,
    no,  no,  no,  no,  no,  no,  yes, yes, yes, yes, NameOrder::ProgramsFirst, EntryAddress::FromAddressPass,
    DataPlace::InLine,    LinkTest::AfterAddresses, no,  no,  kGreatestImage, tMaxMemory, CountsStart::WithRun,   StoreWarning::OnceARun,       ReportForm::Wide,
    no,  no,  yes, TimeLines::General},
  Family{FamilyId::NwW, "NwW", "",
    TextForm::Wide,   Loader::Detecting, Blanks::OneInFront,   kOprndLengthRead, yes, kNoLimit,         kNoLimit,       kNoLimit,       kNoLimit,
    no,  no,  no,  no,  no,  no,  yes, yes, yes, yes, NameOrder::ProgramsFirst, EntryAddress::FromAddressPass,
    DataPlace::InLine,    LinkTest::AfterAddresses, no,  no,  kGreatestImage, tMaxMemory, CountsStart::WithRun,   StoreWarning::OnceARun,       ReportForm::Wide,
    no,  no,  yes, TimeLines::General},
  Family{FamilyId::NaW, "NaW", "std::wstring",
    TextForm::Wide,   Loader::Widened,   Blanks::OneInFront,   kOprndLengthRead, yes, kNoLimit,         kNoLimit,       kNoLimit,       kNoLimit,
    no,  no,  no,  no,  no,  no,  yes, yes, yes, yes, NameOrder::ProgramsFirst, EntryAddress::FromAddressPass,
    DataPlace::InLine,    LinkTest::AfterAddresses, no,  no,  kGreatestImage, tMaxMemory, CountsStart::WithRun,   StoreWarning::OnceARun,       ReportForm::Wide,
    yes, yes, yes, TimeLines::General},
  Family{FamilyId::AP, "AP", "std::string",
    TextForm::Narrow, Loader::Narrow,    Blanks::OneInFront,   kNoLimit, no,  kNoLimit,         kNoLimit,       kNoLimit,       kNoLimit,
    no,  no,  no,  no,  no,  no,  no,  no,  yes, yes, NameOrder::ProgramsFirst, EntryAddress::CountedAhead,
    DataPlace::InLine,    LinkTest::AfterAddresses, yes, yes, kGreatestImage, tMaxMemory, CountsStart::WithReset, StoreWarning::OnceARun,       ReportForm::Narrow,
    no,  yes, yes, TimeLines::General},
  Family{FamilyId::NA, "NA", "std::string",
    TextForm::Narrow, Loader::Narrow,    Blanks::OneInFront,   249,      no,  kNoLimit,         kNoLimit,       kNoLimit,       kNoLimit,
    no,  no,  no,  no,  no,  no,  no,  yes, yes, yes, NameOrder::ProgramsFirst, EntryAddress::CountedAhead,
    DataPlace::InLine,    LinkTest::AfterAddresses, yes, yes, kGreatestImage, tMaxMemory, CountsStart::WithReset, StoreWarning::OnceARun,       ReportForm::Narrow,
    no,  yes, yes, TimeLines::General},
  Family{FamilyId::NH, "NH", "char chH[]",
    TextForm::Narrow, Loader::Fixed,     Blanks::FirstTwoRuns, 249,      no,  kFixedNameLength, kFixedPrograms, kFixedDcOprnds, kFixedOpLength,
    yes, yes, no,  no,  yes, yes, no,  yes, no,  no,  NameOrder::LabelsFirst,   EntryAddress::FromAddressPass,
    DataPlace::AfterCode, LinkTest::AfterAddresses, yes, yes, MaxMemory,      MaxMemory,  CountsStart::WithReset, StoreWarning::EachNewAddress, ReportForm::Fixed,
    no,  yes, no,  TimeLines::Fixed},
};
// clang-format on

}  // namespace

std::span<const Family> families() {
  return kFamilies;
}

const Family* findFamily(std::string_view name) {
  for (const Family& f : kFamilies)
    if (f.name == name) return &f;
  return nullptr;
}

const Family& family(FamilyId id) {
  return kFamilies[static_cast<std::size_t>(id)];
}

}  // namespace zelvaro
