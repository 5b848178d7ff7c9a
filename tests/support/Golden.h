// Golden files: small text files of cases, each a set of named blocks.
//
//   === name of the case
//   --- block
//   lines of the block
//
// Lines before the first case are a comment.  With ZELVARO_REWRITE set in the environment of the test, a
// block that differs is written back; without it the difference fails the test.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace zelvaro::test {

struct GoldenCase {
  std::string name;
  std::vector<std::string> order;             ///< the blocks as they stand in the file
  std::map<std::string, std::string> blocks;  ///< text of each, every line ended by a line feed
  bool has(const std::string& block) const { return blocks.count(block) != 0; }
};

struct GoldenFile {
  std::string path;
  std::string comment;
  std::vector<GoldenCase> cases;
};

GoldenFile readGolden(const std::string& path);
void writeGolden(const GoldenFile& file);
/// The files with that ending below a folder of tests/, sorted.
std::vector<std::string> goldenFiles(const std::string& folder, const std::string& ending);
bool rewriting();

/// Compares a block with what was seen and reports the first line that differs; when rewriting, takes what
/// was seen into the case instead.
void expectBlock(GoldenCase& c, const std::string& block, const std::string& seen);

}  // namespace zelvaro::test
