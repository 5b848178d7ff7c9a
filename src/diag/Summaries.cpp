#include "diag/Summaries.h"

#include <string>

namespace zelvaro {

int SumUpErrors(const TMsgBase& game, std::string_view text, char mode) {
  const bool english = game.Lang != kJapanese;
  const std::string errors = std::to_string(game.ErrorKazu);
  if (mode == 'h' && game.ErrorKazu > 0) {
    game.print("\n\n");
    if (english) {
      game.print(game.ErrorKazu == 1 ? "There is 1 error to be corrected. "
                                     : "There are " + errors + " errors to be corrected. ");
      game.print("\n\nCorrect the codes and assemble them again.\n");
    } else {
      game.print(" " + errors + std::string(text) + "\n");
    }
    return game.ErrorKazu;
  }
  if (mode == 'f' && english && game.ErrorKazu == 0 && game.WarningKazu > 0)
    game.print(std::to_string(game.WarningKazu) + (game.WarningKazu == 1 ? " warning: " : " warnings: ") +
               "\n");
  return 0;
}

int SumUpWarningsJ(const TMsgBase& game, std::string_view text, char mode) {
  if (mode != 'f' || game.Lang != kJapanese || game.ErrorKazu != 0) return 0;
  game.print(text);
  if (game.WarningKazu > 0) game.print(std::to_string(game.WarningKazu) + " 個の 警告 がある。 \n");
  if (game.NoteKazu > 0) game.print("\n");
  if (game.MemoKazu > 0) game.print("\n");
  return 0;
}

}  // namespace zelvaro
