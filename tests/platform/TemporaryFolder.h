// A folder of a test's own, removed with all that is in it.
#pragma once

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace zelvaro::test {

class TemporaryFolder {
 public:
  explicit TemporaryFolder(const std::filesystem::path& in = std::filesystem::temp_directory_path()) {
    std::string name = (in / "zelvaroXXXXXX").string();
    path_ = ::mkdtemp(name.data());
  }
  ~TemporaryFolder() { std::filesystem::remove_all(path_); }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  std::string path(const std::string& name = "") const { return name.empty() ? path_ : path_ + "/" + name; }
  std::string write(const std::string& name, const std::string& bytes) const {
    std::ofstream(path(name), std::ios::binary) << bytes;
    return path(name);
  }
  /// A shell script that can be started.
  std::string writeProgram(const std::string& name, const std::string& body) const {
    write(name, "#!/bin/sh\n" + body);
    std::filesystem::permissions(path(name), std::filesystem::perms::owner_all);
    return path(name);
  }
  std::string read(const std::string& name) const {
    std::ifstream in(path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  std::size_t entries() const {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(path_), {}));
  }

 private:
  std::string path_;
};

}  // namespace zelvaro::test
