#!/usr/bin/env bash
# editors.sh vim|nano|vscode CHECKER: uses the files of editors/ as a learner does: in vim, in nano on a terminal, and
# with the runner of the grammar tests. CHECKER is started under the name zelvaro-check.
set -euo pipefail
checker=$(realpath "$2")
cd "$(dirname "$0")"
editors=$(realpath ../../editors)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
ln -s "$checker" "$scratch/zelvaro-check"
cp faulty.casl "$scratch/two words.casl"
: >"$scratch/empty.cas"
export PATH="$scratch:$editors/npm/node_modules/.bin:$PATH" LC_ALL=C.UTF-8 TERM=xterm

case $1 in
  vim)
    timeout 60 vim -Nu NONE -i NONE -V1 -es --cmd "set rtp^=$editors/vim" -c "cd $scratch" -S "$PWD/vim.vim" \
      </dev/null >"$scratch/shown" 2>&1 || { cat "$scratch/shown" "$scratch/faults" && exit 1; }
    ;;
  nano)
    python3 nano.py "$editors/nano/casl2.nanorc" "$scratch/two words.casl"
    diff <(sed '5s/X//' "$scratch/two words.casl") faulty.casl
    ! cmp -s "$scratch/two words.casl" faulty.casl || { echo "nano wrote no X" && exit 1; }
    ;;
  vscode)
    command -v vsce >/dev/null || { echo "not installed: cd editors/npm && npm ci" && exit 77; }
    vscode-tmgrammar-test -g "$editors/vscode/syntaxes/casl2.tmLanguage.json" grammar.casl
    node vscode.js "$scratch/two words.casl" "$scratch/empty.cas"
    "$editors/vscode/package.sh" "$scratch" >"$scratch/shown"
    python3 -m zipfile -e "$scratch/zelvaro-casl2.vsix" "$scratch/vsix"
    diff -r -x package.sh -x .vscodeignore --ignore-file-name-case "$scratch/vsix/extension" "$editors/vscode"
    ;;
esac
