#include "shell/Pages.h"

#include <algorithm>
#include <array>

#include "MoziCode/Utf.h"
#include "shell/Prompt.h"

namespace zelvaro {
namespace {

constexpr Message goOn = notice(
    "page-prompt", args(),
    {.ja = "-- Enter: 次のページ　　q: 終わり -- ", .en = "-- Enter: next page   q: end of the text -- "});

/// The columns that a character takes at most: a control character has the form "^[", another one that is
/// unsafe on a terminal "<U+202E>".
int columnsOf(const Utf8Mozi& mozi, int column) {
  constexpr int kTab = 8, kUnsafe = 10;
  if (mozi.kind != Utf8Mozi::Kind::Whole) return 1;
  if (mozi.codePoint == U'\t') return kTab - column % kTab;
  if (mozi.codePoint < 0x7F) return mozi.codePoint < 0x20 ? 2 : 1;
  return isUnsafeOnTerminal(mozi.codePoint) ? kUnsafe : 2;
}

/// The length of the text that fits on the screen, without its last row, which the prompt takes.
std::size_t pageLength(std::string_view text, ConsoleSize size) {
  const int rows = std::max(size.rows - 1, 1);
  int row = 0, column = 0;
  std::size_t at = 0;
  while (at < text.size()) {
    const Utf8Mozi mozi = decodeUtf8(text.substr(at));
    const bool endsLine = text[at] == '\n';
    const int columns = endsLine ? 0 : columnsOf(mozi, column);
    if (endsLine || (column > 0 && column + columns > size.columns)) {
      column = 0;
      if (++row == rows) return endsLine ? at + 1 : at;
    }
    column += columns;
    at += mozi.size;
  }
  return at;
}

bool isEnd(std::string_view answer) {
  constexpr std::array<std::string_view, 4> kEnd = {"q", "Q", "ｑ", "Ｑ"};
  return std::ranges::find(kEnd, answer) != kEnd.end();
}

}  // namespace

void showText(TSession& s, std::string_view utf8) {
  while (!utf8.empty()) {
    const auto size = s.platform.consoleSize();
    const std::string_view page = utf8.substr(0, size ? pageLength(utf8, *size) : utf8.size());
    s.platform.print(page);
    utf8.remove_prefix(page.size());
    if (utf8.empty()) return;
    if (page.back() != '\n') s.platform.print("\n");
    s.channel.say(goOn);
    const auto answer = s.platform.readLine();
    if (!answer || isEnd(withoutAnyBlanks(*answer))) return;
  }
}

RowList rowsOfPages() {
  return rows(goOn);
}

}  // namespace zelvaro
