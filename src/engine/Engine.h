// The assembler as calls that return values.  Nothing here prints, opens a file or looks at a clock, and no
// state is kept outside of the objects: engines on several threads do not meet.  Machine.h runs the result.
//
//   const engine::Assembled a = engine::assemble(bytes, {.pipeline = FamilyId::WP, .name = "a.cas"});
//   for (const engine::Finding& f : a.findings()) std::cerr << f.printed.en;
//   if (!a.ok()) return 1;
//
// All texts are UTF-8.  Lines and columns count from 1, 0 means none; a column counts Unicode code points.
// Every function may throw std::bad_alloc unless its comment says otherwise.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <ctime>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "diag/Family.h"
#include "diag/Language.h"
#include "diag/Severity.h"

namespace zelvaro::engine {

enum class Encoding : std::uint8_t { Auto, Utf8, Cp932, Utf16 };

/// How a source is assembled.
struct Options {
  FamilyId pipeline = FamilyId::WP;  ///< findFamily(name)->id gives it by its name
  /// Auto: detected from the bytes as the dialogue does.  Any other value is used for a source without a byte
  /// order mark; Utf16 is little endian then.
  Encoding encoding = Encoding::Auto;
  std::string name = "source.txt";  ///< the file's name in messages and reports
  bool reportsEncoding = true;      ///< the notices name the encoding that was found
  /// A source of more bytes is refused with the message "source-too-large".
  std::size_t mostBytes = 64u << 20;
  /// Findings after these are counted in the tallies and in findingsLeftOut(), and not kept.
  std::size_t mostFindings = 10'000;
};

/// One text in both languages.
struct Text {
  std::string ja;
  std::string en;
  const std::string& in(Language language) const { return language == Language::Japanese ? ja : en; }
};

/// An issued message.
struct Finding {
  std::string_view code;  ///< short and unique, "label-length"; lives as long as the program
  Severity severity = Severity::Notice;
  bool counted = false;  ///< it is in the tally of its severity
  /// It adds lines to the message before it, as a replay of the dialogue shows them.
  bool continues = false;
  int line = 0;
  int secondLine = 0;  ///< another line that the message names, as that of the first label of the name
  /// The text of the line that the message quotes, UTF-8; empty if there is none.
  std::string quoted;
  /// Where the line has the quoted text, and its length in code points; 0 unless it occurs exactly once.
  int column = 0;
  int length = 0;
  Text printed;  ///< as the dialogue prints it, with its head and its line ends
  Text text;     ///< without the head, and without a quoted text directly after it
  /// The arguments, in the order of the catalogue: quoted texts without quotation marks, numbers in decimal.
  std::vector<std::string> args;
};

struct Tallies {
  int errors = 0, warnings = 0, notes = 0, memos = 0;
  friend bool operator==(const Tallies&, const Tallies&) = default;
};

struct Program {
  std::string name;
  int address = 0;    ///< of its first word
  int size = 0;       ///< words, literals included
  int startLine = 0;  ///< of START
  int endLine = 0;    ///< of END
};

struct Label {
  int program = 0;  ///< index in programs()
  std::string name;
  int address = 0;
  int line = 0;
};

/// A line with a statement.
struct ListingRow {
  int program = 0;  ///< index in programs()
  int line = 0;
  int address = 0;
  std::span<const std::uint16_t> words;  ///< of the image; none for END
  std::string label, opcode, operands;   ///< as the assembler understood them, without the comment
  std::string text;                      ///< the line as it was loaded
};

/// The words of a literal.
struct LiteralRow {
  int program = 0;  ///< index in programs()
  int line = 0;     ///< of the statement that uses it
  int address = 0;
  std::span<const std::uint16_t> words;
  std::string text;  ///< with its equal sign
};

/// What is in a report besides the machine: the dialogue takes it from clock and chance.
struct ReportOptions {
  Language language = Language::English;
  std::tm date{};    ///< printed in the head; the days of week and month are taken as they are
  bool hint = true;  ///< the report begins with the five lines on fonts, which the dialogue prints at random
};

enum class Outcome : std::uint8_t {
  Assembled,  ///< the image is there; warnings and notes are possible
  Faulty,     ///< there are Errors
  NotLoaded,  ///< the source was refused when it was loaded; a finding says why
  NoMemory    ///< memory has run out; findings and tallies are those up to then
};

namespace detail {
struct Source;  ///< the objects of the core, for one source
}

/// What has become of a source: a handle to constant data, cheap to copy.  Spans and views into it are valid
/// as long as one of its copies, or a Machine made of it, exists.  Several threads may use one at once.
class Assembled {
 public:
  Outcome outcome() const;
  bool ok() const { return outcome() == Outcome::Assembled; }
  const Options& options() const;

  // --- of every source ---
  /// The messages of load, checks and link, in the order in which they were issued.  Those with
  /// Severity::Notice are no findings but say what is read and how.
  std::span<const Finding> findings() const;
  std::size_t findingsLeftOut() const;
  /// The sums that the dialogue prints.  They differ from the number of findings where some are not counted.
  Tallies tallies() const;
  /// The encoding that was found: Utf8, Cp932 or Utf16; Auto if nothing was loaded.
  Encoding encoding() const;
  /// Its name as the dialogue reports it ("utf-8 with bom(EF BB BF)"); empty for a pipeline that reports none.
  std::string_view encodingName() const;
  /// All lines, as the pipeline reads them.  The fixed form splits long ones.
  std::vector<std::string> sourceLines() const;

  // --- of an assembled source; empty, or none, for any other ---
  std::vector<Program> programs() const;
  std::vector<Label> labels() const;
  std::vector<ListingRow> listing() const;
  std::vector<LiteralRow> literals() const;
  /// The words from address 0 to the end of the last program.
  std::span<const std::uint16_t> image() const;
  /// The line whose word the address holds, 0 for none.
  int lineOf(int address) const;
  /// The address that a text names: a number ("16", "0x10", "#0010"), a label, "PROGRAM.LABEL" or a program.
  /// A label of several programs is that of the first one.
  std::optional<int> addressOf(std::string_view place) const;
  /// The report before the run, the bytes of the dialogue's file.  Empty if there is no image.
  std::string report(const ReportOptions& options = {}) const;

 private:
  friend Assembled assemble(std::string_view bytes, const Options& options);
  friend class Machine;
  explicit Assembled(std::shared_ptr<const detail::Source> source) : source_(std::move(source)) {}
  std::shared_ptr<const detail::Source> source_;
};

/// Assembles the bytes of a source file.  A lack of memory is an outcome; only if not even that fits does it
/// throw std::bad_alloc.
Assembled assemble(std::string_view bytes, const Options& options = {});

/// A message that the engine can issue.
struct CodeInfo {
  std::string_view code;
  std::string_view where;  ///< the file of the check, "Label35G"
  Severity severity = Severity::Notice;
  /// The words with their holes, "{quote} A label must be ...", for a pipeline.
  std::string_view ja, en;
};
/// All of them, in the order of the files that check for them.
std::vector<CodeInfo> codes(FamilyId pipeline = FamilyId::WP);

/// How the dialogue begins a printed message of a severity: "Error : ".  Empty for a Notice.
std::string_view headOf(Severity severity, Language language);

}  // namespace zelvaro::engine
