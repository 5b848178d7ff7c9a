// What --help and --version print.
#include <fmt/format.h>

#include "check/CheckRows.h"
#include "check/OptionTable.h"

namespace zelvaro::check {
namespace {

constexpr Message usage =
    notice("help-usage", args(),
           {.ja = "使い方: zelvaro-check [オプション]... ファイル...\n"
                  "CASL2 のソースを調べ、実行し、採点する。「-」は標準入力のソースを表す。\n\n",
            .en = "Usage: zelvaro-check [OPTION]... FILE...\n"
                  "Checks, runs and marks sources in CASL2. A FILE of - is standard input.\n\n"});
constexpr Message statuses = notice(
    "help-statuses", args(),
    {.ja = "\n終了ステータス: 0 誤りなし, 1 ソースに誤り, 2 保護機能による停止, 3 命令数の上限か入力切れ,\n"
           "4 出力か得点が違う, 5 読み書きできないファイル, 64 使い方の誤り。\n"
           "複数のファイルでは 64, 5, 1, 2, 3, 4 の順で最初に該当するもの。\n",
     .en = "\nExit status: 0 clean, 1 errors in a source, 2 stopped by a guard, 3 step limit or\n"
           "input exhausted, 4 output or grade differs, 5 a file that cannot be read or\n"
           "written, 64 wrong use; of several files the first of 64, 5, 1, 2, 3, 4.\n"});

}  // namespace

std::string helpText(Language language) {
  std::string out = say(language, usage);
  for (const OptionRow& row : optionTable()) {
    const std::string name = fmt::format("  {}{}{}", row.name, row.argument.empty() ? "" : " ", row.argument);
    constexpr std::size_t kColumn = 25;
    out += name.size() < kColumn ? fmt::format("{:<{}}", name, kColumn)
                                 : name + "\n" + std::string(kColumn, ' ');
    out += fmt::format("{}\n", row.help.in(language));
  }
  return out + say(language, statuses);
}

std::string versionText(Language) {
  return "zelvaro-check (Zelvaro) " ZELVARO_VERSION "\n";
}

RowList rowsOfHelp() {
  return rows(usage, statuses);
}

}  // namespace zelvaro::check
