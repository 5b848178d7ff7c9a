#include "check/Listing.h"

#include <fmt/format.h>

#include <algorithm>
#include <span>

#include "check/CheckRows.h"

namespace zelvaro::check {
namespace {

constexpr Message heading =
    notice("listing-heading", args("name"),
           {.ja = "{name}\n番地  語         行  文\n", .en = "{name}\nAdr.  Words     Line  Statement\n"});
constexpr Message labelHeading = notice("listing-labels", args(), {.ja = "\nラベル\n", .en = "\nLabels\n"});

/// Words of a row; more than fill it, as of a long DS, are counted only where all are 0.
constexpr std::size_t kInRow = 2;

void row(std::string& out, int address, std::span<const std::uint16_t> words, int line,
         std::string_view text) {
  const auto hex = [&](std::size_t from) {
    std::string part;
    for (std::size_t i = from; i < std::min(from + kInRow, words.size()); ++i)
      part += fmt::format("{:04X} ", words[i]);
    return part;
  };
  const std::string where = words.empty() ? "" : fmt::format("{:04X}", address);
  out += fmt::format("{:<5} {:<10}{:>4}  {}\n", where, hex(0), line, text);
  const bool isBlank = std::ranges::all_of(words, [](std::uint16_t w) { return w == 0; });
  if (isBlank && words.size() > kInRow) {
    out += fmt::format("      ... {} x 0000\n", words.size());
    return;
  }
  for (std::size_t i = kInRow; i < words.size(); i += kInRow)
    out += fmt::format("{:04X}  {}\n", static_cast<std::size_t>(address) + i, hex(i));
}

}  // namespace

std::string listingText(const engine::Assembled& assembled, Language language) {
  std::string out = say(language, heading, assembled.options().name);
  for (const engine::ListingRow& r : assembled.listing()) row(out, r.address, r.words, r.line, r.text);
  for (const engine::LiteralRow& r : assembled.literals()) row(out, r.address, r.words, r.line, r.text);
  out += say(language, labelHeading);
  const std::vector<engine::Program> programs = assembled.programs();
  for (const engine::Label& l : assembled.labels())
    out += fmt::format("{:04X}  {}.{}\n", l.address, programs.at(static_cast<std::size_t>(l.program)).name,
                       l.name);
  return out;
}

RowList rowsOfListing() {
  return rows(heading, labelHeading);
}

}  // namespace zelvaro::check
