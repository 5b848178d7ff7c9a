// For the golden files of diagnostics.
#include <algorithm>

#include "MoziCode/Utf.h"
#include "shell/Pipelines.h"
#include "whole/Dialogue.h"

namespace zelvaro::test {
namespace {

/// The position behind the line that tells which file is read, or 0.
std::size_t behindReadingLine(const std::string& shown, const std::string& name, int lang) {
  const std::string wide = lang == kJapanese ? "'" + name + "'    " : "* Reading " + name;
  const std::string narrow = lang == kJapanese ? "'" + name + "' を読み込みます。" : "Reading " + name + ".";
  const std::size_t at = std::min(shown.find(wide), shown.find(narrow));
  return at == std::string::npos ? 0 : shown.find('\n', at) + 1;
}

}  // namespace

Findings assemble(std::string_view source, int lang, std::string_view pipeline) {
  Dialogue d;
  // The detection takes a short UTF-8 text for Shift-JIS easily; a mark leaves no doubt.
  const std::string shown = d.assemble((isAscii(source) ? "" : kMark8) + std::string(source),
                                       std::string(pipeline), {"2"}, lang == kJapanese ? "JPN" : "ENU");
  Findings out;
  const std::size_t from = behindReadingLine(shown, "a.txt", lang);
  std::size_t line = shown.find(kTimeLine, from);
  if (line == std::string::npos) {
    out.text = shown.substr(from);
    return out;
  }
  line = shown.rfind('\n', line) + 1;
  out.text = shown.substr(from, line - from);
  out.rest = shown.substr(shown.find('\n', line) + 1);
  out.tallies = d.platform.tallies;
  const bool replays = findPipeline(pipeline)->keepsLog && out.tallies[0] > 0;
  if (replays && out.text.ends_with(d.platform.logText)) {
    out.replayed = true;
    out.text.resize(out.text.size() - d.platform.logText.size());
  }
  return out;
}

}  // namespace zelvaro::test
