#!/usr/bin/env bash
# windows-check.sh ZIP: unpacks the zip for Windows into a folder with a blank in its name and uses it from there under
# wine, as a learner and a teacher do; looks at the programs' headers, resources and imports, and at the pages' links.
set -euo pipefail
zip=$(realpath "$1")
cd "$(dirname "$0")/.."
. scripts/need.sh
need_windows

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
fail() {
  echo "$*"
  exit 1
}
export LC_ALL=C.UTF-8
wine=$PWD/scripts/wine.sh
course="$scratch/my course"
python3 -m zipfile -e "$zip" "$course"
cd "$course"/zelvaro-*

# What is in a program
for program in zelvaro zelvaro-check; do
  x86_64-w64-mingw32-objdump -p $program.exe >"$scratch/headers"
  # high entropy, dynamic base, no execution of data
  grep -q '^DllCharacteristics.*0160$' "$scratch/headers" || fail "$program.exe: $(grep DllCharacteristics "$scratch/headers")"
  imports=$(sed -n 's/.*DLL Name: //p' "$scratch/headers" | tr '[:upper:]' '[:lower:]' | sort -u)
  for library in $imports; do
    case $library in
      kernel32.dll | msvcrt.dll | user32.dll | shell32.dll | advapi32.dll | ole32.dll | shlwapi.dll | bcrypt.dll) ;;
      *) fail "$program.exe needs $library" ;;
    esac
  done
  x86_64-w64-mingw32-windres -J coff -O rc -i $program.exe >"$scratch/resources"
  version=$(basename "$PWD" | cut -d- -f2)
  for words in "\"FileVersion\", \"$version\"" "\"OriginalFilename\", \"$program.exe\"" 'BLOCK "041104B0"' \
    '/longPathAware' 'activeCodePage.*>UTF-8<'; do
    grep -q "$words" "$scratch/resources" || fail "the resources of $program.exe lack $words"
  done
  ! grep -aqF "$OLDPWD" $program.exe || fail "$program.exe has the path of the folder that it was built in"
done

# Every text but those for other systems' editors and the samples of encodings has the line ends of Windows.
while read -r text; do
  [ "$(grep -c '' "$text")" = "$(grep -c $'\r$' "$text")" ] || fail "$text has line ends of another system"
done < <(find . -name '*.txt' ! -path '*/encodings/*' -o -name '*.html' -path './docs/*' -o -name '*.toml')
# What the pages link to is there.
for page in docs/*.html; do
  for link in $(grep -o '\(href\|src\)="[^"#:]*"' "$page" | cut -d'"' -f2); do
    [ -e "docs/$link" ] || fail "$page: no $link"
  done
done

# A learner: a sample, both reports, the guide, the settings
printf '\n1\nsrc/pn100\n\n9\n10\n\n123\n' | "$wine" zelvaro.exe >"$scratch/shown" || fail "zelvaro.exe: status $?"
grep -q '^7' "$scratch/shown" || fail "the sample printed no 7: $(cat "$scratch/shown")"
for file in aaAssembledRegMry.txt aaResultantRegMry.txt zelvaro.ini; do
  [ -s $file ] || fail "$file is missing"
  [ "$(grep -c '' $file)" = "$(grep -c $'\r$' $file)" ] || fail "$file has other line ends than CR LF"
done
grep -q '^  GR1:.*#0007' aaResultantRegMry.txt || fail "the second report has no 7"
grep -q '^LastSrcFile=src.pn100.txt' zelvaro.ini || fail "the settings were not saved: $(cat zelvaro.ini)"

# The samples print what they print elsewhere.
cat >"$scratch/zelvaro" <<END
#!/bin/sh
"$wine" "$PWD/zelvaro.exe" | tr -d '\r'
END
chmod +x "$scratch/zelvaro"
"$OLDPWD/tests/samples/samples.sh" "$scratch/zelvaro" "$PWD/src" || fail "the samples print something else"

# A teacher
status() { # status EXPECTED ARGUMENT...: of zelvaro-check
  local got=0
  "$wine" zelvaro-check.exe "${@:2}" >"$scratch/shown" 2>&1 || got=$?
  [ $got = "$1" ] || fail "zelvaro-check ${*:2}: status $got in place of $1: $(cat "$scratch/shown")"
}
for task in greet mult sum; do
  status 0 --grade tasks/$task/task.toml tasks/$task/right.txt
  status 4 --grade tasks/$task/task.toml tasks/$task/wrong.txt
done
status 1 --format gnu 'src\example\faults\f05doubl.txt'
grep -q 'f05doubl.txt:[0-9]*:.*error:' "$scratch/shown" || fail "no message in the form of gnu: $(cat "$scratch/shown")"
status 0 --init "../another course"
cmp src/pn100.txt "../another course/src/pn100.txt" || fail "--init does not copy the samples"
echo "the zip is sound and runs from a fresh folder"
