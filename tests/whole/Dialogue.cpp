#include "whole/Dialogue.h"

#include <algorithm>

#include "MoziCode/Utf.h"

namespace zelvaro::test {
namespace {

constexpr std::string_view kTimeLine = " msec =(ReadFile";

/// The position behind the line that tells which file is read, or 0.
std::size_t behindReadingLine(const std::string& shown, const std::string& name, int lang) {
  const std::string wide = lang == kJapanese ? "'" + name + "'    " : "* Reading " + name;
  const std::string narrow = lang == kJapanese ? "'" + name + "' を読み込みます。" : "Reading " + name + ".";
  const std::size_t at = std::min(shown.find(wide), shown.find(narrow));
  return at == std::string::npos ? 0 : shown.find('\n', at) + 1;
}

}  // namespace

void WatchedPlatform::print(std::string_view utf8) {
  if (session != nullptr && utf8.find(kTimeLine) != std::string_view::npos) {
    const TMsgBase* owners[] = {&session->sh, &session->cs, &session->b};
    tallies = {};
    for (const TMsgBase* o : owners) {
      tallies[0] += o->ErrorKazu;
      tallies[1] += o->WarningKazu;
      tallies[2] += o->NoteKazu;
      tallies[3] += o->MemoKazu;
    }
    ScriptedPlatform replay;
    session->dg.ReplayLog(replay);
    logText = replay.console;
  }
  showActions();
  seen += utf8;
  ScriptedPlatform::print(utf8);
}

std::optional<std::string> WatchedPlatform::readLine() {
  showActions();
  if (!seen.empty() && seen.back() != '\n') seen += "\n";
  seen += typed.empty() ? "(the input ends)\n" : "> " + typed.front() + "\n";
  return ScriptedPlatform::readLine();
}

EditResult WatchedPlatform::editFile(const EditorCommand& editor, const std::string& path) {
  const auto edited = editing.find(path);
  if (edited != editing.end()) files[path] = edited->second;
  return ScriptedPlatform::editFile(editor, path);
}

void WatchedPlatform::showActions() {
  for (; actionsSeen_ < actions.size(); ++actionsSeen_) seen += "[" + actions[actionsSeen_] + "]\n";
}

std::string Dialogue::run(const std::vector<std::string>& typed) {
  platform.typed.assign(typed.begin(), typed.end());
  platform.console.clear();
  platform.seen.clear();
  session_ = std::make_unique<TSession>(platform);
  platform.session = session_.get();
  {
    TGame game(*session_);
    game.SetCurrentDirChH();
    game.Start();
  }
  platform.session = nullptr;
  return platform.console;
}

Findings assemble(std::string_view source, int lang, std::string_view pipeline) {
  Dialogue d;
  d.platform.japanese = lang == kJapanese;
  // The detection takes a short UTF-8 text for Shift-JIS easily; a mark leaves no doubt.
  d.platform.files["a.txt"] = (isAscii(source) ? "" : "\xEF\xBB\xBF") + std::string(source);
  d.platform.files["zelvaro.ini"] = std::string("[Mode]\nLangStr=") + (lang == kJapanese ? "JPN" : "ENU") +
                                    "\nFightFunc=" + std::string(pipeline) + "\n";
  const std::string shown = d.run({"", "1", "a.txt", "2"});
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
