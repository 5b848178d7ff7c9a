// A file is written to a temporary file beside its target and renamed.
#include <cerrno>
#include <utility>

#include "platform/windows/Files.h"
#include "platform/windows/Paths.h"

namespace zelvaro::windows {
namespace {

constexpr std::size_t kBuffer = 64 * 1024;

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

class TemporaryFile : public OutputFile {
 public:
  explicit TemporaryFile(FileWriting writing) : writing_(writing) {}
  ~TemporaryFile() override { discard(); }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  bool open(const std::string& path);
  void write(std::string_view bytes) override;
  bool commit() override;
  FileFailure failure() const override { return failure_; }

 private:
  bool failed() const { return !failure_.reason.empty(); }
  void fail(FileFailure cause) {
    if (!failed()) failure_ = std::move(cause);
  }
  void failBySystem() { fail(failureOfSystem(::GetLastError())); }
  bool targetCanBeReplaced();
  bool createNew();
  void create();
  void writeOut();
  bool rename() const;
  void discard();

  FileWriting writing_;
  std::wstring target_;
  std::wstring name_;  ///< of the temporary file, empty while there is none
  bool replaced_ = false;
  std::string buffer_;
  FileFailure failure_;
  Handle file_;
};

bool TemporaryFile::targetCanBeReplaced() {
  const DWORD attributes = ::GetFileAttributesW(target_.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) {
    const DWORD error = ::GetLastError();
    if (error != ERROR_FILE_NOT_FOUND) fail(failureOfSystem(error));
  } else if (!writing_.replaces) {
    fail(failureOf(EEXIST));
  } else if (isFolder(attributes)) {
    fail(failureOf(EISDIR));
  } else if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) {
    fail(failureOf(EACCES));
  } else {
    replaced_ = true;
  }
  return !failed();
}

/// Creates the temporary file.  Nobody else can open it or remove it while it is open.
bool TemporaryFile::createNew() {
  file_ = Handle(
      ::CreateFileW(name_.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
  return file_.isOpen();
}

/// Picks a name beside the target: the same each time, or the next one while another program is writing.  The file
/// of a program that was killed can be removed.
void TemporaryFile::create() {
  constexpr int kMostTries = 100;
  const std::wstring folder = folderOf(target_);
  const std::wstring own = L"." + target_.substr(folder.size());
  for (int i = 1; i <= kMostTries; ++i) {
    name_ = folder + own + (i > 1 ? L"." + std::to_wstring(i) : L"") + L".tmp";
    if (createNew()) return;
    const DWORD error = ::GetLastError();
    if (error != ERROR_FILE_EXISTS && error != ERROR_SHARING_VIOLATION) break;
    if (::DeleteFileW(name_.c_str()) != 0 && createNew()) return;
  }
  failBySystem();
  name_.clear();
}

bool TemporaryFile::open(const std::string& path) {
  auto target = fullName(path, &failure_);
  if (target && writing_.replaces && isLink(*target)) target = targetOf(*target, failure_);
  if (!target) return false;
  target_ = std::move(*target);
  if (!targetCanBeReplaced()) return false;
  create();
  return !failed();
}

void TemporaryFile::write(std::string_view bytes) {
  while (!bytes.empty() && !failed()) {
    std::string_view part = bytes.substr(0, kBuffer);
    const bool endsLine = writing_.isText && part.find('\n') != part.npos;
    if (endsLine) part = part.substr(0, part.find('\n'));
    buffer_ += part;
    if (endsLine) buffer_ += "\r\n";
    bytes.remove_prefix(part.size() + (endsLine ? 1 : 0));
    if (buffer_.size() >= kBuffer) writeOut();
  }
}

void TemporaryFile::writeOut() {
  if (const DWORD error = writeAll(file_.get(), buffer_); error != 0) fail(failureOfSystem(error));
  buffer_.clear();
}

/// The first way keeps the rights and the attributes of a file that is replaced; not every file system has it.
bool TemporaryFile::rename() const {
  constexpr DWORD kKept = REPLACEFILE_IGNORE_MERGE_ERRORS | REPLACEFILE_IGNORE_ACL_ERRORS;
  if (replaced_ && ::ReplaceFileW(target_.c_str(), name_.c_str(), nullptr, kKept, nullptr, nullptr) != 0)
    return true;
  const DWORD how = MOVEFILE_WRITE_THROUGH | (writing_.replaces ? MOVEFILE_REPLACE_EXISTING : 0u);
  return ::MoveFileExW(name_.c_str(), target_.c_str(), how) != 0;
}

bool TemporaryFile::commit() {
  if (!failed() && name_.empty()) fail(failureOf(EBADF));
  if (!failed()) writeOut();
  if (!failed() && writing_.synced && ::FlushFileBuffers(file_.get()) == 0) failBySystem();
  file_.close();
  if (!failed() && !rename()) failBySystem();
  if (!failed()) name_.clear();
  discard();
  return !failed();
}

void TemporaryFile::discard() {
  file_.close();
  if (!name_.empty()) ::DeleteFileW(name_.c_str());
  name_.clear();
}

}  // namespace

std::unique_ptr<OutputFile> createFile(const std::string& path, FileFailure* failure, FileWriting writing) {
  auto file = std::make_unique<TemporaryFile>(writing);
  if (file->open(path)) return file;
  tell(failure, file->failure());
  return nullptr;
}

}  // namespace zelvaro::windows
