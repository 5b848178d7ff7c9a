#!/usr/bin/env bash
# scripts/check-hardening.sh PROGRAM: looks whether a program has what cmake/Hardening.cmake asks for.
# scripts/check-hardening.sh --self-test: builds a program without, in which each of these has to be missed.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/need.sh
need binutils

# Prints what the program lacks, one line each.
lacks() {
  local read
  read=$(readelf --wide --file-header --program-headers --dynamic --symbols "$1")
  has() { grep -qE "$1" <<<"$read" || echo "$2"; }
  has 'FLAGS_1.*\<PIE\>' "position independence (PIE)"
  has '\<GNU_RELRO\>' "relocations that are read-only after the start (RELRO)"
  has 'FLAGS_1.*\<NOW\>' "binding of all symbols at the start (full RELRO)"
  has 'GNU_STACK.* RW +0x' "a stack that cannot be executed"
  has '__stack_chk_fail' "the stack protector"
  has '\<__[a-z]+_chk\>' "checked calls (_FORTIFY_SOURCE)"
  # The linker drops the note about it, since the C library's start file has none; the code shows it. A program
  # without symbols, as in the package, has no main to look at.
  if grep -q 'Machine:.*X86-64' <<<"$read" && grep -qE ' main$' <<<"$read"; then
    [[ $(objdump --disassemble=main "$1") = *endbr64* ]] || echo "marked targets of jumps (control-flow protection)"
  fi
}

if [ "$1" = --self-test ]; then
  scratch=$(mktemp -d)
  trap 'rm -rf "$scratch"' EXIT
  echo 'int main(int n, char**) { return n - 1; }' >"$scratch/soft.cpp"
  g++ -O1 -fno-stack-protector -U_FORTIFY_SOURCE -fcf-protection=none -no-pie -Wl,-z,norelro,-z,lazy,-z,execstack \
    "$scratch/soft.cpp" -o "$scratch/soft"
  missed=$(lacks "$scratch/soft" | wc -l)
  wanted=6
  [ "$(uname -m)" != x86_64 ] || wanted=7
  [ "$missed" -eq "$wanted" ] ||
    { echo "self-test: of a program without protection is found only:"; lacks "$scratch/soft"; exit 1; }
  exit 0
fi

missing=$(lacks "$1")
[ -z "$missing" ] || { sed "s|^|$1 lacks |" <<<"$missing"; exit 1; }
echo "$1 is hardened"
