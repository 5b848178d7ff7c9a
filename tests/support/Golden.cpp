#include "support/Golden.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace zelvaro::test {
namespace {

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> out;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) out.push_back(line);
  return out;
}

std::string firstDifference(const std::string& expected, const std::string& seen) {
  const auto e = linesOf(expected), s = linesOf(seen);
  for (std::size_t i = 0; i < std::max(e.size(), s.size()); ++i) {
    const std::string want = i < e.size() ? "[" + e[i] + "]" : "(end)";
    const std::string got = i < s.size() ? "[" + s[i] + "]" : "(end)";
    if (want != got) return "line " + std::to_string(i + 1) + "\n  expected " + want + "\n  seen     " + got;
  }
  return "the last line end";
}

}  // namespace

bool rewriting() {
  return std::getenv("ZELVARO_REWRITE") != nullptr;
}

GoldenFile readGolden(const std::string& path) {
  GoldenFile file{path, {}, {}};
  std::ifstream in(path, std::ios::binary);
  std::string* block = nullptr;
  for (std::string line; std::getline(in, line);) {
    if (line.starts_with("=== ")) {
      file.cases.push_back({line.substr(4), {}, {}});
      block = nullptr;
    } else if (line.starts_with("--- ") && !file.cases.empty()) {
      GoldenCase& c = file.cases.back();
      c.order.push_back(line.substr(4));
      block = &c.blocks[line.substr(4)];
    } else if (file.cases.empty()) {
      file.comment += line + "\n";
    } else if (block != nullptr) {
      *block += line + "\n";
    }
  }
  return file;
}

void writeGolden(const GoldenFile& file) {
  std::ofstream out(file.path, std::ios::binary | std::ios::trunc);
  out << file.comment;
  for (const GoldenCase& c : file.cases) {
    out << "=== " << c.name << "\n";
    for (const std::string& name : c.order) out << "--- " << name << "\n" << c.blocks.at(name);
  }
}

std::vector<std::string> goldenFiles(const std::string& folder, const std::string& ending) {
  std::vector<std::string> out;
  for (const auto& e : std::filesystem::directory_iterator(std::string(ZELVARO_ROOT) + "/tests/" + folder))
    if (e.path().string().ends_with(ending)) out.push_back(e.path().string());
  std::sort(out.begin(), out.end());
  return out;
}

void expectBlock(GoldenCase& c, const std::string& block, const std::string& seen) {
  if (rewriting()) {
    if (!c.has(block)) c.order.push_back(block);
    c.blocks[block] = seen;
    return;
  }
  const std::string expected = c.has(block) ? c.blocks.at(block) : "";
  if (expected == seen) return;
  ADD_FAILURE() << c.name << ", block " << block << ": " << firstDifference(expected, seen);
}

}  // namespace zelvaro::test
