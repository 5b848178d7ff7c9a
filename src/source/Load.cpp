#include "source/Load.h"

namespace zelvaro {
namespace {

SourceBytes bytesOf(const LoadRequest& request) {
  return request.platform.loadFile(nativePath(request.name));
}

}  // namespace

bool loadDetecting(Assembly& a, const LoadRequest& request) {
  const SourceBytes bytes = bytesOf(request);
  DetectEncoding(a.sh, request.code, request.name, bytes, request.reportsEncoding);
  const int page = request.code.CodePage;
  return page == 1200 || page == 1201 ? OpenFileUTF16toVecW(a, request.code, request.name, bytes)
                                      : OpenFileUTF8toVecW(a, request.code, request.name, bytes);
}

bool loadNarrow(Assembly& a, const LoadRequest& request) {
  return OpenFileA(a, request.name, bytesOf(request));
}

bool loadFixed(Assembly& a, const LoadRequest& request) {
  return OpenFileChH(a, request.name, bytesOf(request));
}

}  // namespace zelvaro
