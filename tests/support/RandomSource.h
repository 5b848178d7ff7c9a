// Source files that every pipeline takes without an Error or a Warning and that come to an end when they run.
#pragma once

#include <string>

namespace zelvaro::test {

/// Where a program keeps its DC and DS lines.
enum class DataPlace { AfterCode, AmongCode };

/// One to three programs; the first calls the others, and reads one line of at most 20 characters now and
/// then.  The same seed gives the same text.
std::string randomSource(unsigned seed, DataPlace place);

}  // namespace zelvaro::test
