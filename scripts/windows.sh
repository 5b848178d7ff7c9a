#!/usr/bin/env bash
# Cross-compiles the programs for Windows, makes build/windows/zelvaro-VERSION-windows.zip and checks it under wine. The zip
# has the page zelvaro.html if ./web.sh --build was run before.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/need.sh
need_windows
need cmark-gfm python3

[ -e build/windows/build.ninja ] || cmake --preset windows -DZELVARO_TESTS=OFF
cmake --build --preset windows --target zelvaro zelvaro-check

version=$(sed -n 's/^project(zelvaro VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
date=$(sed -n 's/^ -- .*, \(.*\) [0-9:]* +0000$/\1/p' packaging/changelog | head -1)
zip=build/windows/zelvaro-$version-windows.zip
root=build/windows/zip/zelvaro-$version-windows
rm -rf build/windows/zip "$zip"
mkdir -p "$root"/{docs,licenses}

cp build/windows/zelvaro{,-check}.exe "$root"

# crlf TEXT...: the texts to standard output with the line ends of Windows
crlf() { sed 's/\r*$/\r/' "$@"; }

for guide in docs/{GUIDE,CHECK,EDITORS}.{en,ja}.md; do
  packaging/windows/page.py "$guide" >"$root/docs/$(basename "${guide%.md}").html"
done
cp docs/page.*.png docs/*.schema.json "$root/docs"
# With a byte order mark every editor takes it for what it is.
{ printf '\xEF\xBB\xBF' && crlf packaging/windows/README.txt; } >"$root/README.txt"
[ ! -e build/web/zelvaro.html ] || cp build/web/zelvaro.html "$root"

# The samples of encodings keep their bytes: they are what these samples show.
cp -r workspace/src workspace/tasks editors "$root"
rm -r "$root/editors/npm" "$root/editors/README.md" "$root"/editors/vscode/{package.sh,.vscodeignore}
find "$root/src" "$root/tasks" -type f ! -path '*/encodings/*' | while read -r text; do
  crlf "$text" >"$text.crlf"
  mv "$text.crlf" "$text"
done

# The notices of what is in the programs: ours have those of the libraries that are headers; these are the run-time
# libraries that mingw-w64 links in, and the licence that one of them refers to.
crlf packaging/copyright >"$root/licenses/zelvaro.txt"
crlf /usr/share/doc/gcc-mingw-w64-base/copyright >"$root/licenses/gcc-libraries.txt"
crlf /usr/share/doc/mingw-w64-x86-64-dev/copyright >"$root/licenses/mingw-w64-and-winpthreads.txt"
for library in libfmt-dev libcli11-dev nlohmann-json3-dev libtomlplusplus-dev; do
  crlf /usr/share/doc/$library/copyright >"$root/licenses/$library.txt"
done
crlf /usr/share/common-licenses/GPL-3 >"$root/licenses/GPL-3.txt"

packaging/windows/zip.py "$root" "$zip" "$(LC_ALL=C date -u -d "$date" +%Y-%m-%d)"
size=$(stat -c %s "$zip")
echo "$zip: $size bytes"
[ "$size" -lt $((6 * 1024 * 1024)) ] || { echo "The zip is larger than 6 MiB."; exit 1; }
scripts/windows-check.sh "$zip"
