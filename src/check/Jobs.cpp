#include "check/Jobs.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <mutex>
#include <system_error>
#include <thread>
#include <vector>

#include "comet2/KeptTables.h"

namespace zelvaro::check {

void runJobs(std::size_t count, int jobs, const std::function<void(std::size_t)>& work) {
  std::atomic<std::size_t> next = 0;
  std::exception_ptr failure;
  std::mutex mutex;
  const auto loop = [&] {
    const KeptTables tables;
    try {
      for (std::size_t i = next++; i < count; i = next++) work(i);
    } catch (...) {
      next = count;
      const std::lock_guard lock(mutex);
      if (!failure) failure = std::current_exception();
    }
  };
  std::vector<std::thread> threads;
  const std::size_t more = std::min(count, static_cast<std::size_t>(jobs));
  try {
    for (std::size_t i = 1; i < more; ++i) threads.emplace_back(loop);
  } catch (const std::system_error&) {
    // fewer threads than asked for do the same work
  }
  loop();
  for (std::thread& t : threads) t.join();
  if (failure) std::rethrow_exception(failure);
}

}  // namespace zelvaro::check
