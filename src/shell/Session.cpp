#include "shell/Session.h"

namespace zelvaro {

void TSession::setLanguage(int lang) {
  sh.Lang = lang;
  b.Lang = lang;
  cs.Lang = lang;
  modeData.LangIndex = lang;
}

void TSession::chooseEditor() {
  const int slot = b.TextEditorIndex();
  const std::string& name = b.TextEditorPath[static_cast<std::size_t>(slot)];
  sh.TextEditorIndex = slot;
  sh.TextEditorPath = name;
  editorData.TextEditorIndex = slot;
  editorData.Command.commandLine = slot == 0 ? std::string() : name;
}

}  // namespace zelvaro
