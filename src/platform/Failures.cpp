#include "platform/Failures.h"

#include <cerrno>
#include <system_error>
#include <utility>

namespace zelvaro {

std::string wordsOf(int error) {
  return std::generic_category().message(error);
}

FileFailure failureOf(int error) {
  using Kind = FileFailure::Kind;
  constexpr std::pair<int, Kind> kKinds[] = {{ENOENT, Kind::Missing},
                                             {EEXIST, Kind::Exists},
                                             {ENOMEM, Kind::NoMemory},
                                             {EISDIR, Kind::Folder},
                                             {EFBIG, Kind::TooLarge}};
  for (const auto& [known, kind] : kKinds)
    if (known == error) return {kind, wordsOf(error)};
  return {Kind::System, wordsOf(error)};
}

FileFailure notRegular() {
  return {FileFailure::Kind::NotRegular, "Not a regular file"};
}

FileFailure leadsOutside() {
  return {FileFailure::Kind::LeadsOutside, "The link leads out of the folder"};
}

void tell(FileFailure* failure, FileFailure cause) {
  if (failure != nullptr) *failure = std::move(cause);
}

}  // namespace zelvaro
