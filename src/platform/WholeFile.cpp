#include "platform/WholeFile.h"

#include <cerrno>
#include <new>
#include <stdexcept>

#include "platform/Failures.h"

namespace zelvaro {
namespace {

std::optional<FileFailure> readInto(std::string& bytes, std::size_t size, std::size_t most,
                                    const ReadSome& readSome) {
  bytes.resize(size + 1);  // one more, so that the read that finds the end needs no growth
  std::size_t have = 0;
  while (have <= most) {
    const auto n = readSome(bytes.data() + have, bytes.size() - have);
    if (!n) return lastFailure();
    if (*n == 0) {
      bytes.resize(have);
      return std::nullopt;
    }
    have += *n;
    if (have == bytes.size()) bytes.resize(have * 2);
  }
  return failureOf(EFBIG);
}

}  // namespace

std::optional<std::string> readToEnd(std::size_t size, std::size_t most, const ReadSome& readSome,
                                     FileFailure* failure) {
  std::string bytes;
  std::optional<FileFailure> cause = failureOf(EFBIG);
  try {
    if (size <= most) cause = readInto(bytes, size, most, readSome);
  } catch (const std::bad_alloc&) {
    cause = failureOf(ENOMEM);
  } catch (const std::length_error&) {
  }
  if (!cause) return bytes;
  tell(failure, *cause);
  return std::nullopt;
}

}  // namespace zelvaro
