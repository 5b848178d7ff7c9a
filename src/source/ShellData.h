// TShellData, the shared object `sh`: the master copy of the language, the pipeline's name, the last source
// file and the editor in use.
#pragma once

#include <array>
#include <string>

#include "diag/MsgBase.h"

namespace zelvaro {

class TShellData : public TMsgBase {
 public:
  using TMsgBase::TMsgBase;

  std::string FightFunc;       ///< the pipeline's name
  std::string TextKind;        ///< the pipeline's text kind, as the banner shows it
  std::string LastSrcFile;     ///< the last source file, UTF-8, as the settings hold it
  std::string CurrentFile;     ///< the file of the current run
  int TextEditorIndex = 0;     ///< as read from the settings
  std::string TextEditorPath;  ///< name of the editor in use
  int PrgKazuInFile = 0;       ///< number of programs of the file
};

}  // namespace zelvaro
