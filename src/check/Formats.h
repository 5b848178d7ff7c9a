// How results become text.  Text and gnu write lines to standard error while files are processed; json and sarif
// make one document of a fragment for each file.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "check/Channel.h"
#include "check/Options.h"
#include "check/Result.h"

namespace zelvaro::check {

/// The names of severities for other programs: error, warning, note; a Memo is a note as well.
std::string_view severityName(Severity severity);

/// Lines that a user or an editor reads.  Several threads may use one at once.
class LineFormat {
 public:
  virtual ~LineFormat() = default;
  /// Why the file could not be read, or what the assembler found.
  virtual void findings(const FileResult& result, Channel& channel) const = 0;
  /// What follows the output of a run: its messages, hints, failed reports.
  virtual void afterRun(const FileResult& result, Channel& channel) const = 0;
};

std::unique_ptr<LineFormat> textFormat(Language language);
std::unique_ptr<LineFormat> gnuFormat(Language language);

/// One document for all files.  Several threads may make fragments at once.
class DocumentFormat {
 public:
  virtual ~DocumentFormat() = default;
  virtual std::string fragment(const FileResult& result) const = 0;
  /// The document, of the fragments in the order of the files.
  virtual std::string document(const std::vector<std::string>& fragments, Status status) const = 0;
};

std::unique_ptr<DocumentFormat> jsonFormat(const Options& options);
std::unique_ptr<DocumentFormat> sarifFormat(const Options& options);

}  // namespace zelvaro::check
