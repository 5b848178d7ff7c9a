#include "check/CheckFile.h"
#include "check/Grade.h"

namespace zelvaro::check {

Grade gradeFile(const Shared& shared, const Task& task, const std::string& driver, const std::string& path) {
  FileFailure failure;
  const std::optional<std::string> bytes = readSource(shared, path, failure);
  if (!bytes) return gradeOfFault(task, path, fileFault(path, failure, true).text);
  const Options& o = shared.options;
  return gradeBytes(task, driver, *bytes, {.pipeline = o.pipeline, .encoding = o.encoding, .name = path});
}

}  // namespace zelvaro::check
