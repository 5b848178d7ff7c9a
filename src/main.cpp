#include <cstdlib>
#include <exception>
#include <new>
#include <string_view>

#include "platform/SystemPlatform.h"
#include "shell/Game.h"
#include "shell/Session.h"

namespace {

void play() {
  const auto platform = zelvaro::systemPlatform();
  zelvaro::TSession session(*platform);
  zelvaro::TGame game(session);
  game.SetCurrentDirChH();
  game.Start();
}

/// The files are whole, and nothing that was to be printed waits in a buffer any more.
[[noreturn]] void endWithoutMemory() {
  constexpr std::string_view kWords =
      "zelvaro: メモリが足りないので終了します。 There is not enough memory to go on.\n";
  std::_Exit(zelvaro::writeToStandardError(kWords) ? 1 : 2);
}

/// Where there is no memory even for the exception that would report it, no exception is on its way.
[[noreturn]] void endUncaught() {
  if (std::current_exception() == nullptr) endWithoutMemory();
  std::abort();
}

}  // namespace

int main() {
  std::set_terminate(endUncaught);
  zelvaro::holdStandardDescriptors();
  try {
    play();
    return 0;
  } catch (const std::bad_alloc&) {
    endWithoutMemory();
  }
}
