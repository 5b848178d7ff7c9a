// The program: a command line, its files, an exit status.
#pragma once

#include <string>
#include <vector>

#include "check/Channel.h"
#include "check/Status.h"
#include "platform/Platform.h"

namespace zelvaro::check {

/// Does what a command line, without the name of the program, asks for.
Status checkMain(const std::vector<std::string>& arguments, Platform& platform, Screen& screen);

}  // namespace zelvaro::check
