#!/usr/bin/env bash
# Builds the Debian package, checks it with lintian, unpacks it into a scratch root, and uses it from there as a
# learner does: the starter, a sample, the files that guides and manual pages name.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/need.sh
need dpkg-dev file binutils lintian mandoc groff-base desktop-file-utils

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
fail() {
  echo "$*"
  exit 1
}

for page in docs/man/*.1 docs/man/ja/*.1; do
  mandoc -Tlint -W warning "$page" || fail "$page: mandoc finds faults"
  warnings=$(groff -man -ww -Kutf8 -Tutf8 -z "$page" 2>&1)
  [ -z "$warnings" ] || fail "$warnings"
done
desktop-file-validate packaging/zelvaro.desktop

cmake --build build/release --target compressed zelvaro_engine_archive >/dev/null
(cd build/release && cpack -G DEB -B "$scratch/package" >"$scratch/cpack.log" 2>&1) || fail "$(cat "$scratch/cpack.log")"
lintian --allow-root --fail-on error,warning "$scratch"/package/*.deb
dpkg-deb -x "$scratch"/package/*.deb "$scratch/root"
cmake --install build/release --prefix "$scratch/prefix" >/dev/null

for part in bin/zelvaro bin/zelvaro-start share/man/man1/zelvaro-start.1.gz share/man/ja/man1/zelvaro-start.1.gz \
  share/doc/zelvaro/copyright share/doc/zelvaro/changelog.gz share/applications/zelvaro.desktop \
  share/icons/hicolor/scalable/apps/zelvaro.svg share/zelvaro/src/pn100.txt \
  share/vim/vimfiles/syntax/casl2.vim share/nano/casl2.nanorc share/zelvaro/vscode/package.json \
  bin/zelvaro-check share/man/man1/zelvaro-check.1.gz share/man/ja/man1/zelvaro-check.1.gz share/zelvaro/tasks/sum/task.toml \
  share/zelvaro/zelvaro-check.schema.json share/zelvaro/zelvaro-check-grades.schema.json \
  share/bash-completion/completions/zelvaro-check share/doc/zelvaro/CHECK.en.md share/doc/zelvaro/CHECK.ja.md; do
  [ -e "$scratch/root/usr/$part" ] || fail "the package lacks $part"
  [ -e "$scratch/prefix/$part" ] || fail "the installation lacks $part"
done

scripts/check-hardening.sh "$scratch/root/usr/bin/zelvaro"

# Each option of zelvaro-check is in its manual pages and in its completion, and its folder to begin with can be used.
check=$scratch/root/usr/bin/zelvaro-check
for option in $("$check" --help | grep -o '^  --[a-z-]*'); do
  for text in docs/man/zelvaro-check.1 docs/man/ja/zelvaro-check.1 packaging/zelvaro-check.bash; do
    grep -q -e "$option" <(tr -d '\\' <"$text") || fail "$text lacks $option"
  done
done
completed=$(PATH=$scratch/root/usr/bin:$PATH bash -c '. packaging/zelvaro-check.bash
  COMP_WORDS=(zelvaro-check --explain label-l) COMP_CWORD=2; _zelvaro_check; echo "${COMPREPLY[@]}"')
[ "$completed" = label-length ] || fail "label-l is completed to $completed"
"$check" --init "$scratch/course" >/dev/null
"$check" --grade "$scratch/course/tasks/mult/task.toml" "$scratch/course/tasks/mult/right.txt" >/dev/null ||
  fail "the installed task does not mark its right submission"
[ -z "$(find "$scratch/root" -name '*.a' -o -name '*.h')" ] || fail "the package contains the engine's archive or headers"

# A program outside of the tree is built against the installed engine.
cp -r examples/engine "$scratch/example"
cmake -S "$scratch/example" -B "$scratch/example/build" -DCMAKE_PREFIX_PATH="$scratch/prefix" >"$scratch/example.log" 2>&1 &&
  cmake --build "$scratch/example/build" >>"$scratch/example.log" 2>&1 || fail "$(cat "$scratch/example.log")"
[ "$("$scratch/example/build/echo" 2>/dev/null)" = Hello ] || fail "the example of the engine does not print its input"

# Guides and samples are read on a terminal of 80 columns.
widest=$(find docs/GUIDE.*.md docs/EDITORS.*.md workspace/src -type f ! -path '*/encodings/*' -exec env LC_ALL=C.UTF-8 wc -L {} + | grep -v " total$" | sort -n | tail -1)
read -r columns path <<<"$widest"
[ "$columns" -le 78 ] || fail "$path has a line of $columns columns"

# What the guides and the manual pages name is there.
doc=$scratch/root/usr/share/doc/zelvaro
for name in $(grep -oh '^    src/[a-z0-9/]*\|`src/example/[a-z0-9/]*' "$doc"/GUIDE.*.md | tr -d '` '); do
  sample=$scratch/root/usr/share/zelvaro/$name
  [ -d "$sample" ] || [ -e "$sample.txt" ] || fail "no sample $name"
done
for path in $(grep -oh '/usr/share/[A-Za-z0-9/.-]*' docs/man/*.1 docs/man/ja/*.1 "$doc"/*.md); do
  [ -e "$scratch/root$path" ] || fail "no $path in the package"
done

# The page is in it, and the starter hands it to the browser.
page=$scratch/root/usr/share/zelvaro/zelvaro.html
if [ -e build/web/zelvaro.html ]; then
  mkdir "$scratch/opener"
  printf '#!/bin/sh\necho "opens $1"\n' >"$scratch/opener/xdg-open"
  chmod +x "$scratch/opener/xdg-open"
  [ "$(PATH=$scratch/opener:$PATH "$scratch/root/usr/bin/zelvaro-start" --web)" = "opens $page" ] || fail "--web does not open the page"
fi

# The starter copies the samples once, and starts the program in the learner's folder.
starts() {
  printf '\n1\nsrc/pn100\n\n123\n' | script -qec "$scratch/root/usr/bin/zelvaro-start '$scratch/my course'" /dev/null
}
starts >"$scratch/shown"
for report in aaAssembledRegMry.txt aaResultantRegMry.txt; do
  grep -q "^VM COMET2: $report" "$scratch/my course/$report" || fail "$report is missing: $(cat "$scratch/shown")"
done
grep -q '^  GR1:.*#0007' "$scratch/my course/aaResultantRegMry.txt" || fail "the sample gave no 7"
echo "; mine" >>"$scratch/my course/src/pn100.txt"
starts >"$scratch/shown"
grep -q '^; mine' "$scratch/my course/src/pn100.txt" || fail "the starter wrote over a learner's file"
echo "the package is sound and runs from a fresh folder"
