// What --explain and --list-codes know of each code.
#pragma once

#include <optional>
#include <span>
#include <string>

#include "check/Options.h"

namespace zelvaro::check {

/// Where the text of an example is in its source.
enum class Frame : std::uint8_t { Line, Data, Whole };

/// A faulty text that gets a message, and a mended one that does not.
struct Example {
  std::string_view code;
  FamilyId pipeline;
  Frame frame;
  std::string_view faulty, mended;
};
std::span<const Example> examples();
/// The whole source of an example's text.
std::string sourceOf(Frame frame, std::string_view text);

/// The explanation of --explain, or nothing if no message has the code.
std::optional<std::string> explanation(const Options& options);
std::string unknownCode(const Options& options);
/// A line for each code: its severity and the first line of its words.
std::string codesText(const Options& options);

}  // namespace zelvaro::check
