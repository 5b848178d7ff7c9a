// zelvaro-check: the core without the dialogue, for editors, scripts and graders.
#include <exception>
#include <new>

#include "check/Checker.h"
#include "platform/Memory.h"
#include "platform/SystemPlatform.h"

int main(int argc, char** argv) {
  using namespace zelvaro;
  holdStandardDescriptors();
  allocateForManyMachines();
  try {
    const auto platform = systemPlatform();
    check::Screen screen(false);
    return static_cast<int>(check::checkMain(programArguments(argc, argv), *platform, screen));
  } catch (const std::bad_alloc&) {
    writeToStandardError("zelvaro-check: メモリが足りません。 There is not enough memory.\n");
    return static_cast<int>(check::Status::File);
  }
}
