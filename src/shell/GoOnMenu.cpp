#include "shell/GoOnMenu.h"

#include <cstdlib>
#include <optional>
#include <string>

namespace zelvaro {
namespace {

constexpr Message menu = notice("go-on-menu", args(),
                                {.ja = "\n\nメニュー:\n"
                                       "１ このまま実行する。 \n"
                                       "２ メイン メニューにもどる。 \n"
                                       "メニュウ番号を入力してください。 \n",
                                 .en = "\n\n\nMenu:\n"
                                       "1.  Go on this execution. \n"
                                       "2.  Go back to Main Menu. \n"
                                       "Input a menu number. \n"});

}  // namespace

GoOn GoOnMenu(TMsgBase& game, Platform& platform) {
  if (game.WarningKazu == 0) return GoOn::Run;
  game.say(menu);
  const std::optional<std::string> line = platform.readLine();
  if (!line) return GoOn::Leave;
  // Only the leading digits of the first word are read.
  return std::strtol(line->c_str(), nullptr, 10) == 1 ? GoOn::Run : GoOn::MainMenu;
}

RowList rowsOfGoOnMenu() {
  return rows(menu);
}

}  // namespace zelvaro
