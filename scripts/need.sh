# Sourced by run.sh, test.sh and .ci/run: need PACKAGE... installs with apt what the machine lacks. With show_status
# set, apt writes what it does, and a line for each step of its progress.
need() {
  local missing
  # A package that dpkg has never heard of is missing as well, without a line of its own.
  missing=$({ dpkg-query -W -f='${Package} ${Status}\n' "$@" 2>/dev/null || true; } |
    awk -v wanted="$*" '/ install ok installed$/ { have[$1] }
      END { n = split(wanted, names, " "); for (i = 1; i <= n; ++i) if (!(names[i] in have)) print names[i] }')
  [ -n "$missing" ] || return 0
  # shellcheck disable=SC2206 # a word for each package
  missing=($missing)
  local sudo=() status=() shown=/dev/null
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || {
      echo "These packages are missing: ${missing[*]}. Install them, or run this as root." >&2
      return 1
    }
    sudo=(sudo)
  fi
  echo "Installing: ${missing[*]}"
  [ -z "${show_status:-}" ] || { status=(-o APT::Status-Fd=1) shown=/dev/stdout; }
  local install=("${sudo[@]}" env DEBIAN_FRONTEND=noninteractive apt-get "${status[@]}" install -y -qq "${missing[@]}")
  # A machine that was never updated has no list to install from.
  "${install[@]}" >"$shown" 2>&1 || { "${sudo[@]}" apt-get update -qq && "${install[@]}" >"$shown"; }
}

need_to_build() {
  need g++ cmake ninja-build libfmt-dev libboost-dev libcli11-dev nlohmann-json3-dev libtomlplusplus-dev
}
need_to_test() { need_to_build && need libgtest-dev libgmock-dev python3-jsonschema vim vim-tiny nano less; }
# What the tests of editors/ need besides: the packages of npm, as the lock file has them.
need_to_test_editors() {
  need python3
  command -v npm >/dev/null || need nodejs npm
  [ editors/npm/node_modules/.package-lock.json -nt editors/npm/package-lock.json ] || (cd editors/npm && npm ci)
}
need_clang() { need clang; }
# The programs for Windows: the cross compiler, and wine, under which their tests run.
need_windows() { need_to_build && need g++-mingw-w64-x86-64-posix googletest wine wine64; }
# What the page of web/ is built with: emscripten for the core, npm's packages as the lock file has them.
need_to_build_web() {
  need cmake ninja-build emscripten libfmt-dev libtomlplusplus-dev
  command -v npm >/dev/null || need nodejs npm
  [ web/node_modules/.package-lock.json -nt web/package-lock.json ] || (cd web && npm ci --no-audit --no-fund)
}
need_to_test_web() { need_to_build_web && need chromium; }
# Builds build/web/zelvaro.html. Emscripten keeps what it compiles of its libraries in a folder of the user where it may
# not write into its own.
build_web() {
  [ -w /usr/share/emscripten/cache ] || export EM_CACHE=${EM_CACHE:-$PWD/build/emscripten}
  [ build/web/build.ninja -nt web/core/CMakeLists.txt ] || emcmake cmake -S web/core -B build/web -G Ninja
  cmake --build build/web
  node web/build.mjs build/web/core.wasm build/web/zelvaro.html
}
