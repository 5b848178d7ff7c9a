#include <unistd.h>

#include <new>
#include <string_view>

#include "platform/PosixPlatform.h"
#include "shell/Game.h"
#include "shell/Session.h"

namespace {

void play() {
  zelvaro::PosixPlatform platform;
  zelvaro::TSession session(platform);
  zelvaro::TGame game(session);
  game.SetCurrentDirChH();
  game.Start();
}

}  // namespace

int main() {
  zelvaro::holdStandardDescriptors();
  try {
    play();
    return 0;
  } catch (const std::bad_alloc&) {
    // The files are whole, and nothing that was to be said waits in a buffer any more.
    constexpr std::string_view kWords =
        "zelvaro: メモリが足りないので終了します。 There is not enough memory to go on.\n";
    return ::write(STDERR_FILENO, kWords.data(), kWords.size()) < 0 ? 2 : 1;
  }
}
