#include "shell/ShellRows.h"

namespace zelvaro {

RowList rowsOfFight();
RowList rowsOfGame();
RowList rowsOfGoOnMenu();
RowList rowsOfHelpFile();
RowList rowsOfMainMenu();
RowList rowsOfModeSelector();
RowList rowsOfPages();
RowList rowsOfSettings();
RowList rowsOfUserCommands();

RowList shellRows() {
  RowList all;
  for (const auto& rowsOfFile : {rowsOfFight, rowsOfGame, rowsOfGoOnMenu, rowsOfHelpFile, rowsOfMainMenu,
                                 rowsOfModeSelector, rowsOfPages, rowsOfSettings, rowsOfUserCommands})
    for (const MessageRow* row : rowsOfFile()) all.push_back(row);
  return all;
}

}  // namespace zelvaro
