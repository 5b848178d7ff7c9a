// Work on several files at once.
#pragma once

#include <cstddef>
#include <functional>

namespace zelvaro::check {

/// Calls work(0) to work(count - 1), begun in this order, on `jobs` threads; on the caller's own with one job.
/// An exception of a call is thrown again after all threads have ended; no new call begins after it.
void runJobs(std::size_t count, int jobs, const std::function<void(std::size_t)>& work);

}  // namespace zelvaro::check
