#include "support/ScriptedPlatform.h"

namespace zelvaro::test {
namespace {

class MemoryFile : public OutputFile {
 public:
  MemoryFile(ScriptedPlatform& platform, std::string path) : platform_(platform), path_(std::move(path)) {}
  void write(std::string_view bytes) override { bytes_ += bytes; }
  bool commit() override {
    if (platform_.unwritable.count(path_) != 0) return false;
    platform_.files[path_] = bytes_;
    return true;
  }
  std::string reason() const override {
    return platform_.unwritable.count(path_) != 0 ? "No space left on device" : "";
  }

 private:
  ScriptedPlatform& platform_;
  std::string path_;
  std::string bytes_;
};

void tell(FileFailure* failure, const char* reason) {
  if (failure != nullptr) failure->reason = reason;
}

}  // namespace

std::optional<std::string> ScriptedPlatform::readLine() {
  if (typed.empty()) return std::nullopt;
  std::string line = std::move(typed.front());
  typed.pop_front();
  return line;
}

std::optional<std::string> ScriptedPlatform::readFile(const std::string& path, FileFailure* failure) {
  const auto at = files.find(path);
  if (at == files.end()) {
    tell(failure, folders.count(path) != 0 ? "Is a directory" : "No such file or directory");
    return std::nullopt;
  }
  return at->second;
}

std::unique_ptr<OutputFile> ScriptedPlatform::createFile(const std::string& path, FileFailure* failure) {
  if (folders.count(path) != 0) {
    tell(failure, "Is a directory");
    return nullptr;
  }
  return std::make_unique<MemoryFile>(*this, path);
}

bool ScriptedPlatform::renameFile(const std::string& from, const std::string& to) {
  const auto at = files.find(from);
  if (at == files.end()) return false;
  files[to] = std::move(at->second);
  files.erase(from);
  return true;
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
