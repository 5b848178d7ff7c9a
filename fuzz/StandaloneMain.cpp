// Runs a target over files and the files of folders: the kept inputs, with any compiler.
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "Fuzz.h"

int main(int argc, char** argv) {
  std::vector<std::filesystem::path> files;
  for (const std::filesystem::path path : std::vector<std::string>(argv + 1, argv + argc)) {
    if (!std::filesystem::is_directory(path))
      files.push_back(path);
    else
      files.insert(files.end(), std::filesystem::directory_iterator(path), {});
  }
  for (const std::filesystem::path& path : files) {
    std::ifstream in(path, std::ios::binary);
    zelvaro::fuzz::require(in.is_open(), "cannot read " + path.string());
    const std::string bytes{std::istreambuf_iterator<char>(in), {}};
    std::fprintf(stderr, "%s\n", path.c_str());  // an input that ends the process is named last
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
  }
  std::fprintf(stderr, "%zu inputs\n", files.size());
  return files.empty() ? 1 : 0;
}
