// zelvaro-check: the core without the dialogue, for editors, scripts and graders.
#include <exception>
#include <new>
#include <string>
#include <vector>

#include "check/Checker.h"
#include "platform/Memory.h"
#include "platform/PosixPlatform.h"

int main(int argc, char** argv) {
  using namespace zelvaro;
  holdStandardDescriptors();
  allocateForManyMachines();
  try {
    PosixPlatform platform;
    check::Screen screen(false);
    const std::vector<std::string> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
    return static_cast<int>(check::checkMain(arguments, platform, screen));
  } catch (const std::bad_alloc&) {
    writeToStandardError("zelvaro-check: メモリが足りません。 There is not enough memory.\n");
    return static_cast<int>(check::Status::File);
  }
}
