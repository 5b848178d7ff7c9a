#!/usr/bin/env bash
# Sets up what is missing, builds the program and starts it in workspace/. What the set-up and the build write goes to
# build/run.log. A terminal shows on one line how far they are, and that line is gone before the dialogue begins.
set -euo pipefail
cd "$(dirname "$0")"
. scripts/need.sh

case ${LC_ALL:-${LC_MESSAGES:-${LANG:-}}} in
  ja*) packages="必要なパッケージをインストールしています" prepares="ビルドの準備をしています" builds="プログラムをビルドしています" ;;
  *) packages="Installing packages" prepares="Preparing the build" builds="Building the program" ;;
esac

# Joined by &&, since `set -e` does not hold in a condition.
set_up_and_build() {
  show_status=yes need_to_build &&
    # later builds configure anew by themselves, but for a change of the presets
    { [ build/release/build.ninja -nt CMakePresets.json ] || cmake --preset release -DZELVARO_TESTS=OFF; } &&
    cmake --build --preset release --target zelvaro
}

show() { printf '\r\033[K%s' "$1"; }

# Writes its input to the log; on a terminal, shows what the last line says about the progress.
log_and_show() {
  local line percent
  while IFS= read -r line; do
    printf '%s\n' "$line" >>build/run.log
    [ -t 1 ] || continue
    case $line in
      "Installing: "*) show "$packages: ${line#*: }" ;;
      dlstatus:* | pmstatus:*) # kind:package:percent:text, for apt's two steps
        percent=${line#*:*:}
        show "$packages: ${line%%status:*} ${percent%%[.:]*} %"
        ;;
      "-- "*) show "$prepares" ;;
      "[0/"*) ;; # ninja only looks whether there is anything to do
      "["*/*"] "*) show "$builds: ${line%% *}" ;;
    esac
  done
  [ ! -t 1 ] || show ""
}

mkdir -p build
: >build/run.log
if ! set_up_and_build 2>&1 </dev/null | log_and_show; then
  cat build/run.log >&2
  exit 1
fi
cd workspace
exec ../build/release/zelvaro
