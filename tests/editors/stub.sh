#!/usr/bin/env bash
# Used in place of zelvaro-check where that is not built: messages in its form about faulty.casl and an empty file.
file=$3
[ "$1 $2" = "--format gnu" ] || exit 64
faulty=("$file:3:20: note: words [range-note]" "$file:4:20: error: words: of two parts [name-unknown]" "$file:5: error: words [x]")
[ -s "$file" ] && printf '%s\n' "${faulty[@]}" >&2 || echo "$file: error: words [source-empty]" >&2
exit 1
