# Completion of zelvaro-check for bash.
_zelvaro_check() {
  local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD - 1]} words=
  # readline has parted --option=value at the sign
  [ "$cur" != = ] || cur=
  if [ "$prev" = = ]; then prev=${COMP_WORDS[COMP_CWORD - 2]}; fi
  case $prev in
    --lang) words="en ja" ;;
    --pipeline) words="WP NWW NwW NaW AP NA NH" ;;
    --encoding) words="auto utf-8 cp932 utf-16" ;;
    --format) words="text gnu json sarif csv junit" ;;
    --color) words="auto always never" ;;
    --explain) words=$(zelvaro-check --list-codes 2>/dev/null | cut -d' ' -f1) ;;
    --report-dir | --init)
      mapfile -t COMPREPLY < <(compgen -d -- "$cur")
      return
      ;;
    --output | --input | --expect | --grade)
      mapfile -t COMPREPLY < <(compgen -f -- "$cur")
      return
      ;;
    --max-steps | --last | --from | --until | --jobs) return ;;
  esac
  if [ -z "$words" ] && [[ $cur == -* ]]; then
    words="--lang --pipeline --encoding --format --output --run --input --max-steps --expect --listing --report-dir
      --trace --last --from --until --hints --grade --jobs --watch --quiet --explain --list-codes --init --color
      --help --version"
  fi
  if [ -n "$words" ]; then
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$cur")
  else
    mapfile -t COMPREPLY < <(compgen -f -- "$cur")
  fi
}
complete -o filenames -F _zelvaro_check zelvaro-check
