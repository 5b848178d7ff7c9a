# Sourced by run.sh, test.sh and .ci/run: need PACKAGE... installs with apt what the machine lacks.
need() {
  local missing=() package
  for package in "$@"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  local sudo=()
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || {
      echo "These packages are missing: ${missing[*]}. Install them, or run this as root." >&2
      return 1
    }
    sudo=(sudo)
  fi
  echo "Installing: ${missing[*]}"
  export DEBIAN_FRONTEND=noninteractive
  # A machine that was never updated has no list to install from.
  "${sudo[@]}" apt-get install -y -qq "${missing[@]}" >/dev/null 2>&1 ||
    { "${sudo[@]}" apt-get update -qq && "${sudo[@]}" apt-get install -y -qq "${missing[@]}" >/dev/null; }
}

need_to_build() { need g++ cmake ninja-build libfmt-dev libboost-dev; }
need_to_test() { need_to_build && need libgtest-dev libgmock-dev vim vim-tiny nano; }
