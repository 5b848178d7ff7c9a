// For the golden files of diagnostics.
#pragma once

#include "whole/Dialogue.h"

namespace zelvaro::test {

/// What one source file caused.
struct Findings {
  std::string text;       ///< printed between the reading line and the time line, without the replay
  Tallies tallies{};      ///< at the time line
  bool replayed = false;  ///< the replay came, and it was that of the log
  std::string rest;       ///< what followed the time line
};

/// Assembles a source text in a language (0 Japanese, 1 English) through the whole dialogue.  The program
/// runs where nothing speaks against it.  `pipeline` is a name for the settings.
Findings assemble(std::string_view source, int lang, std::string_view pipeline = "WP");

}  // namespace zelvaro::test
