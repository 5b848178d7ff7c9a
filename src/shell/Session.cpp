#include "shell/Session.h"

namespace zelvaro {

void TSession::chooseEditor() {
  const int slot = b.TextEditorIndex();
  const std::string& name = b.TextEditorPath[static_cast<std::size_t>(slot)];
  sh.TextEditorIndex = slot;
  sh.TextEditorPath = name;
  editorData.TextEditorIndex = slot;
  editorData.Command.commandLine = slot == 0 ? std::string() : name;
}

}  // namespace zelvaro
