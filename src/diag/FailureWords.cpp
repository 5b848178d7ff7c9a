#include "diag/FailureWords.h"

#include "diag/MsgBase.h"

namespace zelvaro {

std::string failureWords(const FileFailure& failure, int lang) {
  switch (failure.kind) {
    case FileFailure::Kind::NotRegular:
      return std::string(inLanguage(lang, "通常のファイルではありません", "Not a regular file"));
    case FileFailure::Kind::LeadsOutside:
      return std::string(
          inLanguage(lang, "このフォルダの外を指すリンクです", "It is a link that leads out of this folder"));
    default:
      return failure.reason;
  }
}

}  // namespace zelvaro
