// A file is written to a temporary file beside its target and renamed.
#include <cerrno>
#include <utility>

#include "platform/ConsolePlatform.h"
#include "platform/windows/Paths.h"

namespace zelvaro::windows {
namespace {

/// Whether a name is a link, and not that of a file with some other mark, as one that a cloud keeps.
bool isLink(const std::wstring& name) {
  WIN32_FIND_DATAW found{};
  const HANDLE search = ::FindFirstFileW(name.c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return false;
  ::FindClose(search);
  return (found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
         IsReparseTagNameSurrogate(found.dwReserved0);
}

Handle openToLook(const std::wstring& name) {
  return Handle(::CreateFileW(name.c_str(), FILE_READ_ATTRIBUTES,
                              FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                              FILE_FLAG_BACKUP_SEMANTICS, nullptr));
}

/// The file that a link of that name leads to; a failure if it lies outside of the folder of the name.
std::optional<std::wstring> targetOf(const std::wstring& name, FileFailure& failure) {
  const Handle file = openToLook(name);
  const DWORD error = ::GetLastError();
  const std::wstring target = file.isOpen() ? finalName(file) : std::wstring();
  if (target.empty()) {
    failure = failureOfSystem(error);
    return std::nullopt;
  }
  const std::wstring folder = finalName(openToLook(folderOf(name)));
  if (!folder.empty() && target.starts_with(folder.back() == L'\\' ? folder : folder + L'\\')) return target;
  failure = leadsOutside();
  return std::nullopt;
}

class TemporaryFile : public TemporaryOutput {
 public:
  explicit TemporaryFile(FileWriting writing) : TemporaryOutput(writing, "\r\n") {}
  ~TemporaryFile() override { discard(); }

 private:
  void findTarget(const std::string& path) override;
  Creation createNew(const std::string& suffix) override;
  bool removeLeftover() override { return ::DeleteFileW(name_.c_str()) != 0; }
  void writeOut(std::string_view bytes) override;
  void complete() override;
  void close() override { file_.close(); }
  void rename() override;
  void remove() override;

  void failBySystem() { fail(failureOfSystem(::GetLastError())); }

  std::wstring target_;
  std::wstring name_;  ///< of the temporary file
  bool replaced_ = false;
  Handle file_;
};

void TemporaryFile::findTarget(const std::string& path) {
  FileFailure failure;
  auto target = fullName(path, &failure);
  if (target && writing_.replaces && isLink(*target)) target = targetOf(*target, failure);
  if (!target) return fail(std::move(failure));
  target_ = std::move(*target);

  const DWORD attributes = ::GetFileAttributesW(target_.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) {
    if (::GetLastError() != ERROR_FILE_NOT_FOUND) failBySystem();
  } else if (!writing_.replaces) {
    fail(failureOf(EEXIST));
  } else if (isFolder(attributes)) {
    fail(failureOf(EISDIR));
  } else if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) {
    fail(failureOf(EACCES));
  } else {
    replaced_ = true;
  }
}

/// Nobody else can open the file or remove it while it is open.
TemporaryOutput::Creation TemporaryFile::createNew(const std::string& suffix) {
  const std::wstring folder = folderOf(target_);
  name_ = folder + L"." + target_.substr(folder.size()) + wide(suffix);
  file_ = Handle(
      ::CreateFileW(name_.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (file_.isOpen()) return Creation::Created;
  const DWORD error = ::GetLastError();
  if (error == ERROR_FILE_EXISTS || error == ERROR_SHARING_VIOLATION) return Creation::NameInUse;
  fail(failureOfSystem(error));
  return Creation::Failed;
}

void TemporaryFile::writeOut(std::string_view bytes) {
  if (const DWORD error = writeAll(file_.get(), bytes); error != 0) fail(failureOfSystem(error));
}

void TemporaryFile::complete() {
  if (writing_.synced && ::FlushFileBuffers(file_.get()) == 0) failBySystem();
}

/// The first way keeps the rights and the attributes of a file that is replaced; not every file system has it.
void TemporaryFile::rename() {
  constexpr DWORD kKept = REPLACEFILE_IGNORE_MERGE_ERRORS | REPLACEFILE_IGNORE_ACL_ERRORS;
  if (replaced_ && ::ReplaceFileW(target_.c_str(), name_.c_str(), nullptr, kKept, nullptr, nullptr) != 0)
    return;
  const DWORD how = MOVEFILE_WRITE_THROUGH | (writing_.replaces ? MOVEFILE_REPLACE_EXISTING : 0u);
  if (::MoveFileExW(name_.c_str(), target_.c_str(), how) == 0) failBySystem();
}

void TemporaryFile::remove() {
  file_.close();
  ::DeleteFileW(name_.c_str());
}

}  // namespace
}  // namespace zelvaro::windows

namespace zelvaro {

std::unique_ptr<TemporaryOutput> ConsolePlatform::temporaryOutput(FileWriting writing) {
  return std::make_unique<windows::TemporaryFile>(writing);
}

}  // namespace zelvaro
