// The table of options: what CLI11 accepts, what --help prints and what the manual pages name come from it.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "check/Options.h"

namespace zelvaro::check {

struct OptionRow {
  std::string_view name;      ///< "--lang"
  std::string_view argument;  ///< as --help shows it, "en|ja"; empty for a flag
  Words help;
  /// Takes the value, or "" for a flag; false if it is none of those allowed.
  bool (*take)(Options& options, const std::string& value);
};

std::span<const OptionRow> optionTable();

}  // namespace zelvaro::check
