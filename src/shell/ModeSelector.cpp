#include "shell/ModeSelector.h"

#include <array>
#include <optional>

#include "shell/Prompt.h"

namespace zelvaro {
namespace {

constexpr std::size_t kNumberLimit = 41;

constexpr Message head =
    notice("mode-selector", args(), bothLanguages("Mode Selector: Input a menu number.\n"));
constexpr Message noModeNumber = notice("no-mode-number", args(),
                                        {.ja = "メニュー番号以外の入力がありましたのでもう一度！\n",
                                         .en = "You are expected to input a happy menu number.\n"});

struct ModeRow {
  long number;
  std::string_view text;
  std::string_view name;  ///< of the pipeline; empty: cancels
};

constexpr std::array kModeRows{
    ModeRow{1, "1. NWW (by default on the past)", "NWW"},
    ModeRow{2, "2. WP (Recommended at present)", "WP"},
    ModeRow{3, "3. AP", "AP"},
    ModeRow{4, "4. NA", "NA"},
    ModeRow{5, "5. NaW", "NaW"},
    ModeRow{6, "6. NH", "NH"},
    ModeRow{9, "9. NwW", "NwW"},
    ModeRow{33, "33. Cancel", ""},
};

/// The pipeline for a number without a row.
constexpr std::string_view kOtherNumber = "NWW";

std::string_view nameOf(long number) {
  for (const ModeRow& row : kModeRows)
    if (row.number == number) return row.name;
  return kOtherNumber;
}

void printModes(TSession& s) {
  s.channel.say(head);
  for (const ModeRow& row : kModeRows) s.platform.print(std::string(row.text) + "\n");
}

}  // namespace

ModeChange ModeSelector(TSession& s) {
  for (;;) {
    printModes(s);
    const std::optional<std::string> line = askLine(s.platform, kNumberLimit);
    if (!line) return ModeChange::InputEnded;
    const std::optional<long> number = decimalNumber(withoutBlanks(*line));
    if (!number) {
      s.channel.say(noModeNumber);
      continue;
    }
    const std::string_view name = nameOf(*number);
    if (name.empty() || name == s.sh.FightFunc) return ModeChange::None;
    s.sh.FightFunc = name;
    return ModeChange::Chosen;
  }
}

RowList rowsOfModeSelector() {
  return rows(head, noModeNumber);
}

}  // namespace zelvaro
