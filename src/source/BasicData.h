// TBasicData, the shared object `b`: the line store and program tables, the names of the source and of the
// editors.
#pragma once

#include <array>
#include <string>
#include <type_traits>

#include "diag/MsgBase.h"
#include "source/LineStore.h"

namespace zelvaro {

class TBasicData : public TMsgBase {
 public:
  using TMsgBase::TMsgBase;

  LineStore<char16_t> vecSrcW;  ///< the lines and programs of a wide pipeline
  LineStore<char> vecSrcA;      ///< the lines and programs of a narrow pipeline
  std::string SrcFilename;      ///< name of the file being assembled, UTF-8
  int PrgEndAdr = 0;            ///< words of the linked image: the first address after the last program
  std::string FirstPrgName;     ///< the first program's name, UTF-8
  /// Names of the text editors; slot 0 never changes.
  std::array<std::string, 3> TextEditorPath{"notepad.exe", "", ""};
  int SimpleTitleIndex = 0;
  int BusyModeIndex = 0;

  template <class Char>
  LineStore<Char>& store() {
    if constexpr (std::is_same_v<Char, char16_t>) {
      return vecSrcW;
    } else {
      return vecSrcA;
    }
  }
  template <class Char>
  const LineStore<Char>& store() const {
    return const_cast<TBasicData*>(this)->store<Char>();
  }
  void clearTables() {
    vecSrcW.clear();
    vecSrcA.clear();
    PrgEndAdr = 0;
    FirstPrgName.clear();
  }

  int TextEditorIndex() const { return textEditorIndex_; }
  /// Stores the slot of the editor table; a value outside 0 to 2 is reported and becomes 0.
  void SetTextEdIndex(int index);

 private:
  int textEditorIndex_ = 0;
};

}  // namespace zelvaro
