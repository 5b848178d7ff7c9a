#include "support/ScriptedPlatform.h"

namespace zelvaro::test {
namespace {

using Kind = FileFailure::Kind;

class MemoryFile : public OutputFile {
 public:
  MemoryFile(ScriptedPlatform& platform, std::string path) : platform_(platform), path_(std::move(path)) {}
  void write(std::string_view bytes) override { bytes_ += bytes; }
  bool commit() override {
    if (platform_.unwritable.count(path_) != 0) return false;
    platform_.files[path_] = bytes_;
    return true;
  }
  FileFailure failure() const override {
    const bool fails = platform_.unwritable.count(path_) != 0;
    return {FileFailure::Kind::System, fails ? "No space left on device" : ""};
  }

 private:
  ScriptedPlatform& platform_;
  std::string path_;
  std::string bytes_;
};

void tell(FileFailure* failure, FileFailure::Kind kind, const char* reason) {
  if (failure != nullptr) *failure = {kind, reason};
}

}  // namespace

std::optional<std::string> ScriptedPlatform::readLine() {
  if (typed.empty()) return std::nullopt;
  std::string line = std::move(typed.front());
  typed.pop_front();
  return line;
}

bool ScriptedPlatform::canRead(const std::string& path, FileFailure* failure) {
  return readFile(path, failure, kAnySize).has_value();
}

std::optional<std::string> ScriptedPlatform::readFile(const std::string& path, FileFailure* failure,
                                                      std::size_t most) {
  const auto at = files.find(path);
  if (at != files.end() && at->second.size() <= most) return at->second;
  if (at != files.end()) {
    tell(failure, Kind::TooLarge, "File too large");
  } else if (folders.count(path) != 0) {
    tell(failure, Kind::Folder, "Is a directory");
  } else {
    tell(failure, Kind::Missing, "No such file or directory");
  }
  return std::nullopt;
}

std::unique_ptr<OutputFile> ScriptedPlatform::createFile(const std::string& path, FileFailure* failure,
                                                         FileWriting writing) {
  if (!writing.replaces && exists(path)) {
    tell(failure, Kind::Exists, "File exists");
  } else if (folders.count(path) != 0) {
    tell(failure, Kind::Folder, "Is a directory");
  } else {
    return std::make_unique<MemoryFile>(*this, path);
  }
  return nullptr;
}

std::optional<std::string> ScriptedPlatform::folderListing(const std::string& path, FileFailure*) {
  actions.push_back("list " + path);
  return "";
}

bool ScriptedPlatform::deleteFile(const std::string& path, FileFailure*) {
  actions.push_back("delete " + path);
  return files.erase(path) != 0;
}

EditResult ScriptedPlatform::editFile(const EditorCommand& editor, const std::string& path) {
  actions.push_back("edit [" + editor.commandLine + "] " + path);
  return {};
}

bool ScriptedPlatform::openOnDesktop(const std::string& path) {
  actions.push_back("open " + path);
  return true;
}

}  // namespace zelvaro::test
