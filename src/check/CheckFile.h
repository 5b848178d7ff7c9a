// One file through the engine: read, assembled, run.
#pragma once

#include <ctime>
#include <optional>
#include <string>
#include <vector>

#include "check/Channel.h"
#include "check/Options.h"
#include "check/Result.h"
#include "platform/Platform.h"

namespace zelvaro::check {

/// What all files of a command line share.  Nothing in it changes while they are processed.
struct Shared {
  Platform& platform;
  Options options;
  std::optional<std::vector<std::string>> input;     ///< lines of --input
  std::optional<std::vector<std::string>> expected;  ///< lines of --expect
  std::tm now{};
};

/// The bytes of a source, of standard input for "-", or nothing.
std::optional<std::string> readSource(const Shared& shared, const std::string& path, FileFailure& failure);

/// Reads a source and assembles it.
FileResult assembleFile(const Shared& shared, const std::string& path);

/// Runs what was assembled.  What OUT writes goes to the channel, or into the result where the format is a
/// document; a trace goes to the channel's standard error in any case.
void runFile(const Shared& shared, FileResult& result, Channel& channel);

/// Writes the reports below --report-dir.
void writeReports(const Shared& shared, FileResult& result);

/// The reason why a file could not be read or written, as a remark.
Remark fileFault(const std::string& path, const FileFailure& failure, bool isRead);

}  // namespace zelvaro::check
