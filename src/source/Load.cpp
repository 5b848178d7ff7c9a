#include "source/Load.h"

namespace zelvaro {
namespace {

template <std::size_t N>
consteval Message<N> refusal(std::string_view code, ArgNames<N> args, Words words) {
  return Message<N>(code, Severity::Error, Head::Prefix, args, words).uncounted().unlogged();
}

constexpr Message noMemory = refusal(
    "source-no-memory", args("name"),
    {.ja = "{name} を読み込むにはメモリが足りない。", .en = "There is not enough memory to read {name}. "});
constexpr Message isFolder = refusal(
    "source-is-folder", args("name"),
    {.ja = "{name} はフォルダであり、ファイルではない。", .en = "{name} is a folder and not a file. "});
constexpr Message isNotRegular = refusal(
    "source-not-regular", args("name"),
    {.ja = "{name} はデバイスやパイプなどであり、通常のファイルではないので読み込まない。",
     .en = "{name} is not read, because it is a device, a pipe or the like and not a regular file. "});
constexpr Message isTooLarge =
    refusal("source-too-large", args("name", "most"),
            {.ja = "{name} は大きすぎる。 ソースファイルは {most} バイトまでである。",
             .en = "{name} is too large. A source file may have {most} bytes at most. "});

}  // namespace

bool reportRefusal(TShellData& sh, const std::string& name, const FileFailure& failure, std::size_t most) {
  switch (failure.kind) {
    case FileFailure::Kind::NoMemory:
      sh.say(noMemory, name);
      return true;
    case FileFailure::Kind::Folder:
      sh.say(isFolder, name);
      return true;
    case FileFailure::Kind::NotRegular:
      sh.say(isNotRegular, name);
      return true;
    case FileFailure::Kind::TooLarge:
      sh.say(isTooLarge, name, most);
      return true;
    default:
      return false;
  }
}

/// Reads the file and passes its bytes to a loader, unless the file is refused.
template <class Open>
bool openSource(Assembly& a, const LoadRequest& request, Open open) {
  FileFailure failure;
  const SourceBytes bytes = request.platform.loadFile(nativePath(request.name), &failure);
  if (!bytes && reportRefusal(a.sh, request.name, failure, request.platform.mostSourceBytes())) return false;
  return open(bytes);
}

bool loadDetecting(Assembly& a, const LoadRequest& request) {
  return openSource(a, request, [&](const SourceBytes& bytes) {
    DetectEncoding(a.sh, request, bytes);
    const int page = request.code.CodePage;
    return page == 1200 || page == 1201 ? OpenFileUTF16toVecW(a, request.code, request.name, bytes)
                                        : OpenFileUTF8toVecW(a, request.code, request.name, bytes);
  });
}

bool loadNarrow(Assembly& a, const LoadRequest& request) {
  return openSource(a, request, [&](const SourceBytes& bytes) { return OpenFileA(a, request.name, bytes); });
}

bool loadFixed(Assembly& a, const LoadRequest& request) {
  return openSource(a, request,
                    [&](const SourceBytes& bytes) { return OpenFileChH(a, request.name, bytes); });
}

RowList rowsOfLoad() {
  return rows(noMemory, isFolder, isNotRegular, isTooLarge);
}

}  // namespace zelvaro
