// TSession: the objects that live as long as the program.  main constructs it before TGame and it outlives
// TGame.  Nothing in it is global, so two sessions can live in one process.
#pragma once

#include <string>

#include "TimeVcl/TimeVcl.h"
#include "comet2/Comet2.h"
#include "diag/ConsoleSink.h"
#include "diag/DiagLog.h"
#include "platform/Platform.h"
#include "source/Assembly.h"
#include "source/Load.h"

namespace zelvaro {

/// The settings that the menu and the reports read, with the values of the file.
struct ModeData {
  int SimpleTitleIndex = 0;
  int SilentModeIndex = 0;
  int BusyModeIndex = 0;
};

/// The text editor in use.
struct EditorData {
  int TextEditorIndex = 0;  ///< slot of the editor table, 0 to 2
  EditorCommand Command;    ///< empty for slot 0, the platform's own editor
};

/// The name of the settings file, in the working directory.
inline constexpr std::string_view kIniFile = "zelvaro.ini";

struct TSession {
  explicit TSession(Platform& p) : platform(p) {
    channel.add(console);
    channel.add(dg);
  }
  TSession(const TSession&) = delete;
  TSession& operator=(const TSession&) = delete;

  Platform& platform;
  Wording wording;  ///< the language of the user and the family of the running pipeline
  ConsoleSink console{platform, wording};
  TDiagLog dg;
  DiagChannel channel;  ///< where everything is issued
  TBasicData b{channel};
  TCorrectScode cs{channel};
  TShellData sh{channel};
  Tcomet2 m;
  ModeData modeData;
  EditorData editorData;
  MoziCodeData moziCodeData;
  TimeData timeData;
  bool iniIsLeftAlone = false;  ///< the settings file could not be read, so it is not written either

  /// Copies the editor's slot of `b` to `sh`, and sets the command that opens files.
  void chooseEditor();
};

}  // namespace zelvaro
