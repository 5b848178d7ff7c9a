#include "whole/Transcript.h"

#include <filesystem>
#include <fstream>
#include <sstream>

namespace zelvaro::test {
namespace {

std::string fileBytes(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

/// All sample sources, under the names that a learner types.
void addSamples(ScriptedPlatform& platform) {
  const std::filesystem::path root = std::string(ZELVARO_ROOT) + "/workspace";
  for (const auto& e : std::filesystem::recursive_directory_iterator(root / "src"))
    if (e.is_regular_file()) platform.files[e.path().lexically_relative(root).string()] = fileBytes(e.path());
}

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> out;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) out.push_back(line);
  return out;
}

std::string fromHex(const std::string& digits) {
  std::string out;
  std::string pair;
  for (const char c : digits) {
    if (c == ' ' || c == '\n') continue;
    pair += c;
    if (pair.size() < 2) continue;
    out += static_cast<char>(std::stoi(pair, nullptr, 16));
    pair.clear();
  }
  return out;
}

std::vector<std::string> typedLines(const std::string& text) {
  constexpr std::string_view kBytes = "<bytes ";
  std::vector<std::string> lines = linesOf(text);
  for (std::string& line : lines)
    if (line.starts_with(kBytes)) line = fromHex(line.substr(kBytes.size(), line.size() - kBytes.size() - 1));
  return lines;
}

void prepare(WatchedPlatform& platform, const std::string& block, const std::string& text) {
  const std::size_t blank = block.find(' ');
  const std::string kind = block.substr(0, blank);
  const std::string name = blank == std::string::npos ? "" : block.substr(blank + 1);
  if (kind == "file") platform.files[name] = text;
  if (kind == "bytes") platform.files[name] = fromHex(text);
  if (kind == "edit") platform.editing[name] = text;
  if (kind == "folder") platform.folders.insert(name);
  if (kind == "unwritable") platform.unwritable.insert(name);
  if (kind == "language") platform.japanese = text == "ja\n";
  if (kind == "ticks") platform.ticksPerCall = std::stoll(text);
  if (kind == "random") platform.random = std::stoi(text);
}

}  // namespace

std::unique_ptr<Dialogue> play(const GoldenCase& c) {
  auto d = std::make_unique<Dialogue>();
  d->platform.now.tm_year = 126;
  d->platform.now.tm_mon = 10;
  d->platform.now.tm_mday = 22;
  addSamples(d->platform);
  for (const auto& [block, text] : c.blocks) prepare(d->platform, block, text);
  d->run(typedLines(c.blocks.at("typed")));
  return d;
}

}  // namespace zelvaro::test
