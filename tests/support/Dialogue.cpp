#include "support/Dialogue.h"

#include <filesystem>
#include <fstream>

namespace zelvaro::test {

const Files& samples() {
  static const Files all = [] {
    Files out;
    const std::filesystem::path root = std::filesystem::path(ZELVARO_ROOT) / "workspace";
    for (const auto& e : std::filesystem::recursive_directory_iterator(root / "src")) {
      if (!e.is_regular_file()) continue;
      std::ifstream in(e.path(), std::ios::binary);
      out[e.path().lexically_relative(root).generic_string()] = {std::istreambuf_iterator<char>(in),
                                                                 std::istreambuf_iterator<char>()};
    }
    return out;
  }();
  return all;
}

void WatchedPlatform::print(std::string_view utf8) {
  if (session != nullptr && utf8.find(kTimeLine) != std::string_view::npos) {
    tallies = {};
    for (const TMsgBase* o :
         {static_cast<const TMsgBase*>(&session->sh), static_cast<const TMsgBase*>(&session->cs),
          static_cast<const TMsgBase*>(&session->b)}) {
      tallies[0] += o->ErrorKazu;
      tallies[1] += o->WarningKazu;
      tallies[2] += o->NoteKazu;
      tallies[3] += o->MemoKazu;
    }
  }
  takeActions();
  answers.back().text += utf8;
  ScriptedPlatform::print(utf8);
}

void WatchedPlatform::takeActions() {
  for (; actionsSeen_ < actions.size(); ++actionsSeen_)
    answers.back().text += "[" + actions[actionsSeen_] + "]\n";
}

void WatchedPlatform::endAnswer() {
  takeActions();
  answers.back().files = files;
  for (const std::string& name : takenAway) files.erase(name);
}

std::optional<std::string> WatchedPlatform::readLine() {
  endAnswer();
  if (!inputEnded_) answers.emplace_back();
  inputEnded_ = typed.empty();
  return ScriptedPlatform::readLine();
}

EditResult WatchedPlatform::editFile(const EditorCommand& editor, const std::string& path) {
  const auto edited = editing.find(path);
  if (edited != editing.end()) files[path] = edited->second;
  return ScriptedPlatform::editFile(editor, path);
}

std::string Dialogue::run(const std::vector<std::string>& typed) {
  platform.typed.assign(typed.begin(), typed.end());
  platform.now.tm_year = 126;
  platform.now.tm_mon = 10;
  platform.now.tm_mday = 22;
  platform.answers.assign(1, {});
  session_ = std::make_unique<TSession>(platform);
  platform.session = session_.get();
  if (alsoTakes != nullptr) session_->channel.add(*alsoTakes);
  {
    TGame game(*session_);
    game.SetCurrentDirChH();
    game.Start();
  }
  platform.endAnswer();
  platform.session = nullptr;
  return platform.console;
}

std::string Dialogue::assemble(std::string_view source, const std::string& pipeline,
                               std::vector<std::string> typed, const std::string& language) {
  platform.files["a.txt"] = source;
  platform.files["zelvaro.ini"] = "[Mode]\nLangStr=" + language + "\nFightFunc=" + pipeline + "\n";
  typed.insert(typed.begin(), {"", "1", "a.txt"});
  return run(typed);
}

}  // namespace zelvaro::test
