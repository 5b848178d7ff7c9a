#include "support/ScriptedPlatform.h"

namespace zelvaro::test {
namespace {

using Kind = FileFailure::Kind;

class MemoryFile : public OutputFile {
 public:
  MemoryFile(ScriptedPlatform& platform, std::string path) : platform_(platform), path_(std::move(path)) {}
  void write(std::string_view bytes) override { bytes_ += bytes; }
  bool commit() override {
    if (!failure().reason.empty()) return false;
    platform_.files[path_] = bytes_;
    return true;
  }
  FileFailure failure() const override {
    return {Kind::System, platform_.unwritable.count(path_) != 0 ? "No space left on device" : ""};
  }

 private:
  ScriptedPlatform& platform_;
  std::string path_;
  std::string bytes_;
};

/// The failure of a call that gives nothing then.
std::nullopt_t refused(FileFailure* failure, Kind kind, const char* reason) {
  if (failure != nullptr) *failure = {kind, reason};
  return std::nullopt;
}

}  // namespace

std::optional<std::string> ScriptedPlatform::readLine() {
  if (typed.empty()) return std::nullopt;
  std::string line = std::move(typed.front());
  typed.pop_front();
  return line;
}

std::optional<std::string> ScriptedPlatform::readFile(const std::string& path, FileFailure* failure,
                                                      std::size_t most) {
  const auto at = files.find(path);
  if (folders.count(path) != 0) return refused(failure, Kind::Folder, "Is a directory");
  if (at == files.end()) return refused(failure, Kind::Missing, "No such file or directory");
  if (at->second.size() > most) return refused(failure, Kind::TooLarge, "File too large");
  return at->second;
}

std::unique_ptr<OutputFile> ScriptedPlatform::createFile(const std::string& path, FileFailure* failure,
                                                         FileWriting writing) {
  if (!writing.replaces && exists(path)) {
    refused(failure, Kind::Exists, "File exists");
  } else if (folders.count(path) != 0) {
    refused(failure, Kind::Folder, "Is a directory");
  } else {
    return std::make_unique<MemoryFile>(*this, path);
  }
  return nullptr;
}

bool ScriptedPlatform::deleteFile(const std::string& path, FileFailure*) {
  actions.push_back("delete " + path);
  return files.erase(path) != 0;
}

}  // namespace zelvaro::test
