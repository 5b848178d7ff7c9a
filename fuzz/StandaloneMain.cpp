// Runs a target over files and the files of folders: the kept inputs, with any compiler.
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "Fuzz.h"

namespace {

int files = 0;

void runFile(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  zelvaro::fuzz::require(!in.bad(), "cannot read " + path.string());
  // The name stands there when the input ends the process.
  std::fprintf(stderr, "%s\n", path.c_str());
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
  ++files;
}

}  // namespace

int main(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    if (std::filesystem::is_directory(argv[i])) {
      for (const auto& e : std::filesystem::recursive_directory_iterator(argv[i]))
        if (e.is_regular_file()) runFile(e.path());
    } else {
      runFile(argv[i]);
    }
  }
  std::fprintf(stderr, "%d inputs\n", files);
  return files > 0 ? 0 : 1;
}
