#include "source/Load.h"

#include <type_traits>

#include "source/FixedForm.h"

namespace zelvaro {
namespace {

constexpr Message noMemory = Message{Severity::Error,
                                     Head::Prefix,
                                     args("name"),
                                     {.ja = "{name} を読み込むにはメモリが足りない。",
                                      .en = "There is not enough memory to read {name}. "}}
                                 .uncounted()
                                 .unlogged();
constexpr Message isFolder = Message{Severity::Error,
                                     Head::Prefix,
                                     args("name"),
                                     {.ja = "{name} はフォルダであり、ファイルではない。",
                                      .en = "{name} is a folder and not a file. "}}
                                 .uncounted()
                                 .unlogged();
constexpr Message isNotRegular =
    Message{Severity::Error,
            Head::Prefix,
            args("name"),
            {.ja = "{name} はデバイスやパイプなどであり、通常のファイルではないので読み込まない。",
             .en = "{name} is not read, because it is a device, a pipe or the like and not a regular file. "}}
        .uncounted()
        .unlogged();
constexpr Message isTooLarge =
    Message{Severity::Error,
            Head::Prefix,
            args("name", "most"),
            {.ja = "{name} は大きすぎる。 ソースファイルは {most} バイトまでである。",
             .en = "{name} is too large. A source file may have {most} bytes at most. "}}
        .uncounted()
        .unlogged();

}  // namespace

bool tellRefusal(TShellData& sh, const std::string& name, const FileFailure& failure) {
  switch (failure.kind) {
    case FileFailure::Kind::NoMemory:
      sh.report<WP, noMemory>(0, name);
      return true;
    case FileFailure::Kind::Folder:
      sh.report<WP, isFolder>(0, name);
      return true;
    case FileFailure::Kind::NotRegular:
      sh.report<WP, isNotRegular>(0, name);
      return true;
    case FileFailure::Kind::TooLarge:
      sh.report<WP, isTooLarge>(0, name, Platform::kMostSourceBytes);
      return true;
    default:
      return false;
  }
}

template <class Family>
int loadSource(Assembly& a, MoziCodeData& code, const std::string& name, int simpleTitleIndex) {
  FileFailure failure;
  const SourceBytes bytes = a.sh.console().loadFile(nativePath(name), &failure);
  if (!bytes && tellRefusal(a.sh, name, failure)) return kNotLoaded;
  if constexpr (kIsFixedForm<Family>) {
    return OpenFileChH(a, name, bytes);
  } else if constexpr (std::is_same_v<CharOf<Family>, char>) {
    return OpenFileA(a, name, bytes);
  } else {
    DetectEncoding(a.sh, code, name, bytes, simpleTitleIndex);
    const bool utf16 = code.CodePage == 1200 || code.CodePage == 1201;
    return utf16 ? OpenFileUTF16toVecW(a, code, name, bytes) : OpenFileUTF8toVecW(a, code, name, bytes);
  }
}

#define ZELVARO_INSTANTIATE(F) template int loadSource<F>(Assembly&, MoziCodeData&, const std::string&, int);
ZELVARO_FAMILIES(ZELVARO_INSTANTIATE)

}  // namespace zelvaro
