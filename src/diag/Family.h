// The families: one row for each pipeline name, one column for each difference between the pipelines.  A
// stage asks the column that its rule depends on.  What differs in words only is in the message (Message.h).
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <string_view>

namespace zelvaro {

enum class FamilyId : std::uint8_t { WP, NWW, NwW, NaW, AP, NA, NH };

/// A set of families.
struct FamilySet {
  std::uint8_t bits = 0;

  constexpr bool contains(FamilyId id) const { return (bits >> static_cast<unsigned>(id) & 1u) != 0; }
  friend constexpr FamilySet operator|(FamilySet a, FamilySet b) {
    return {static_cast<std::uint8_t>(a.bits | b.bits)};
  }
};
constexpr FamilySet setOf(FamilyId id) {
  return {static_cast<std::uint8_t>(1u << static_cast<unsigned>(id))};
}

inline constexpr FamilySet kWP = setOf(FamilyId::WP);
inline constexpr FamilySet kNaW = setOf(FamilyId::NaW);
inline constexpr FamilySet kAP = setOf(FamilyId::AP);
inline constexpr FamilySet kNA = setOf(FamilyId::NA);
inline constexpr FamilySet kNH = setOf(FamilyId::NH);  ///< the fixed form
/// Wide text with operand buffers of a fixed length.
inline constexpr FamilySet kNWW = setOf(FamilyId::NWW) | setOf(FamilyId::NwW) | kNaW;
inline constexpr FamilySet kWide = kWP | kNWW;
/// The families that detect the encoding of the source.
inline constexpr FamilySet kDetecting = kWP | setOf(FamilyId::NWW) | setOf(FamilyId::NwW);
inline constexpr FamilySet kNarrow = kAP | kNA;  ///< narrow text, without the fixed form
inline constexpr FamilySet kAll = kWide | kNarrow | kNH;
inline constexpr FamilySet kAllButNH = kWide | kNarrow;
inline constexpr FamilySet kAllButAP = kWide | kNA | kNH;

/// How the text of a source is held: UTF-16 in char16_t, or CP932 in char.
enum class TextForm : std::uint8_t { Wide, Narrow };

/// How a source file becomes lines.
enum class Loader : std::uint8_t {
  Detecting,  ///< detects the encoding; wide lines
  Narrow,     ///< narrow lines
  Widened,    ///< the narrow loader, whose lines are converted to wide text
  Fixed       ///< narrow lines of a limited length and number; undecodable bytes stay unchanged
};

/// How a line is normalised.
enum class Blanks : std::uint8_t {
  OneInFront,   ///< two or more leading blanks become one
  FirstTwoRuns  ///< each of the first two runs of blanks becomes one blank
};

/// In which order a name in an operand is looked up.
enum class NameOrder : std::uint8_t { ProgramsFirst, LabelsFirst };

/// How START finds the address of a label.
enum class EntryAddress : std::uint8_t { FromAddressPass, CountedAhead };

/// Where DC and DS are in the memory of a program.
enum class DataPlace : std::uint8_t { InLine, AfterCode };

/// When the link looks at the tallies.
enum class LinkTest : std::uint8_t { AfterAddresses, AfterEachStep };

/// When the counts of executed instructions become 0: with the reset before the link, or with each run too.
enum class CountsStart : std::uint8_t { WithReset, WithRun };

/// When a store outside of the image is reported as a Warning.
enum class StoreWarning : std::uint8_t { OnceARun, EachNewAddress };

enum class ReportForm : std::uint8_t { Wide, Narrow, Fixed };
enum class TimeLines : std::uint8_t { General, Fixed };

/// Means "no limit" in a column for a limit.
inline constexpr std::size_t kNoLimit = std::numeric_limits<std::size_t>::max();

/// One row of the table.  The groups are the lines of a row in Family.cpp.
struct Family {
  FamilyId id;
  std::string_view name;      ///< as the settings and the mode selector have it
  std::string_view textKind;  ///< printed in the banner; empty: that of the previous pipeline is kept

  // --- text and records ---
  TextForm text;
  Loader loader;
  Blanks blanks;
  std::size_t oprndLength;    ///< characters of an operand text that are read
  bool warnsOfCutOprnd;       ///< the first operand text of a program that is cut gets a Warning
  std::size_t prgNameLength;  ///< characters of a program's name that are read
  std::size_t mostPrograms;   ///< programs of a file
  std::size_t mostDcOprnds;   ///< operands of a DC line
  std::size_t opLength;       ///< characters of the longest word that is looked up as an opcode

  // --- checks ---
  bool labelAlone;          ///< a line may hold a label and nothing else
  bool knowsEXIT;           ///< the opcode EXIT exists
  bool asksForOprndsOfLD;   ///< LD without its operands is reported before anything else
  bool reportsDoubleComma;  ///< two commas where an index register is expected have a message of their own
  bool explainsDsNumber;   ///< a bad number of DS is explained by its first character; text after it is noted
  bool notesLiteralRange;  ///< a number of a literal out of range gets a Note; else a Warning
  bool prgNameIsEntry;     ///< START may name another program
  bool prgNameInDC;        ///< a DC may name another program
  bool ownNameIsLabel;     ///< a program's own name is one of its labels; else it is one of the programs
  bool warnsOfExternalName;  ///< a program's name outside CALL and LAD gets a Warning
  NameOrder nameOrder;
  EntryAddress entryAddress;

  // --- memory and run ---
  DataPlace dataPlace;
  LinkTest linkTest;
  bool keepsWords;        ///< the link refuses to overwrite a word
  bool linksEmptyString;  ///< a character constant without characters links, as no word
  int mostWords;          ///< of the linked image
  int runLimit;           ///< the highest address that a run may use
  CountsStart countsStart;
  StoreWarning storeWarning;
  ReportForm report;

  // --- dialogue ---
  bool keepsLog;       ///< messages of checks are logged, and replayed after a run with Errors
  bool testsEditor;    ///< the slot of the editor is tested at the start
  bool savesSettings;  ///< leaving writes the settings
  TimeLines timeLines;
};

std::span<const Family> families();
/// The family of that name, or null.
const Family* findFamily(std::string_view name);
const Family& family(FamilyId id);

}  // namespace zelvaro
