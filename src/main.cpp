#include "platform/PosixPlatform.h"
#include "shell/Game.h"
#include "shell/Session.h"

int main() {
  zelvaro::PosixPlatform platform;
  zelvaro::TSession session(platform);
  zelvaro::TGame game(session);
  game.SetCurrentDirChH();
  game.Start();
  return 0;
}
