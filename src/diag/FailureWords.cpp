#include "diag/FailureWords.h"

namespace zelvaro {
namespace {

constexpr Message notRegular =
    notice("file-not-regular", args(), {.ja = "通常のファイルではありません", .en = "Not a regular file"});
constexpr Message leadsOutside =
    notice("file-leads-outside", args(),
           {.ja = "このフォルダの外を指すリンクです", .en = "It is a link that leads out of this folder"});

}  // namespace

MsgArg failureWords(const FileFailure& failure) {
  switch (failure.kind) {
    case FileFailure::Kind::NotRegular:
      return notRegular;
    case FileFailure::Kind::LeadsOutside:
      return leadsOutside;
    default:
      return failure.reason;
  }
}

RowList rowsOfFailureWords() {
  return rows(notRegular, leadsOutside);
}

}  // namespace zelvaro
