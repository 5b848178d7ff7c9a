// Marks a submission by a task.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "check/Options.h"
#include "check/Task.h"

namespace zelvaro::check {

struct Shared;

/// One case, or the rules, of a submission.
struct Mark {
  std::string name;
  bool hidden = false;
  bool passed = false;
  int points = 0;                     ///< that it got
  int of = 0;                         ///< that it could get
  std::vector<engine::Text> reasons;  ///< why it has not passed; of a hidden case only that it is one
};

struct Grade {
  std::string path;
  Status status = Status::Clean;
  int points = 0;
  std::optional<engine::Text> fault;  ///< why nothing was run: the file, its errors, a rule
  std::vector<Mark> marks;            ///< the cases in their order, then the rules if they have points
};

/// Marks the bytes of a submission, which are assembled with the options.  `driver` is UTF-8.
Grade gradeBytes(const Task& task, const std::string& driver, std::string_view bytes,
                 const engine::Options& options);
/// What a submission gets that cannot be read.
Grade gradeOfFault(const Task& task, const std::string& path, engine::Text fault);

/// Reads a submission and marks it.  `driver` is UTF-8.
Grade gradeFile(const Shared& shared, const Task& task, const std::string& driver, const std::string& path);

/// All grades as the text of a format: Text, Csv, Json or Junit.
std::string gradesText(const Task& task, const std::vector<Grade>& grades, const Options& options);

}  // namespace zelvaro::check
