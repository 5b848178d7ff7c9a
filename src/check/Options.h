// The command line as values.  OptionTable.cpp has the table of options, Usage.cpp what does not go together.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "check/Status.h"
#include "engine/Engine.h"

namespace zelvaro::check {

enum class Format : std::uint8_t { Text, Gnu, Json, Sarif, Csv, Junit };
enum class ColorChoice : std::uint8_t { Auto, Always, Never };

/// The name of a source that is read from standard input.
inline constexpr std::string_view kStandardInput = "-";

struct Options {
  static constexpr std::int64_t kUsualSteps = 100'000'000;

  Language language = Language::English;
  FamilyId pipeline = FamilyId::WP;
  engine::Encoding encoding = engine::Encoding::Auto;
  Format format = Format::Text;
  std::string output;  ///< empty: standard output
  bool run = false;
  std::string input;                    ///< empty: standard input
  std::int64_t maxSteps = kUsualSteps;  ///< 0: no limit
  std::string expect;
  bool listing = false;
  std::string reportDir;
  bool trace = false;
  std::int64_t last = 0;  ///< 0: all steps
  std::string from, until;
  bool hints = false;
  std::string grade;
  int jobs = 1;
  bool watch = false;
  bool quiet = false;
  std::string explain;
  bool listCodes = false;
  std::string init;
  ColorChoice color = ColorChoice::Auto;
  bool help = false;
  bool version = false;
  std::vector<std::string> files;

  /// Whether the format is a document that goes to --output: all but text and gnu.
  bool makesDocument() const { return format != Format::Text && format != Format::Gnu; }
};

/// Why a command line is refused, and the language that it asks for.
struct WrongUse {
  std::string words;
  Language language;
};

/// Reads a command line, without the name of the program.  `usual` is the language without --lang.
std::variant<Options, WrongUse> parseOptions(std::vector<std::string> arguments, Language usual);

/// What --help and --version print.
std::string helpText(Language language);
std::string versionText(Language language);

}  // namespace zelvaro::check
