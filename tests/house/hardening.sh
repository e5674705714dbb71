#!/usr/bin/env bash
# hardening.sh PROGRAM [OBJECT]: reads off a program, and an object file that it is made of, that they are
# hardened, and names what they lack.
# hardening.sh --each-missing-in PROGRAM OBJECT: fails unless they lack each of it, so that each check bites.
set -euo pipefail
wanted_found=true
if [ "$1" = --each-missing-in ]; then wanted_found=false; shift; fi
program="$1"

header=$(readelf --wide --file-header "$program")
segments=$(readelf --wide --program-headers "$program")
dynamic=$(readelf --wide --dynamic "$program")
symbols=$(readelf --wide --dyn-syms "$program")
sections=$(readelf --wide --section-headers "$program")
wrong=()

expect() {  # WHAT PATTERN TEXT
  local found=false
  ! grep -qE "$2" <<< "$3" || found=true
  [ "$found" = "$wanted_found" ] || wrong+=("$1")
}

expect "position independence" 'Type: +DYN' "$header"
expect "a read-only relocation table" 'GNU_RELRO' "$segments"
expect "binding of everything at the start" 'BIND_NOW|\(FLAGS_1\).*NOW' "$dynamic"
expect "the stack protector" '__stack_chk_fail' "$symbols"
# Not every program has a call that can be checked; and the system's own start-up files have no control-flow
# protection, so that a program as a whole does not say that it has.
if [ $# -gt 1 ]; then
  expect "checked calls of the C library" '__(mem|str|printf|v?sn?printf|read|f?printf)[a-z]*_chk' "$symbols"
  [[ "$header" != *X86-64* ]] || expect "control-flow protection" 'IBT.*SHSTK' "$(readelf --wide --notes "$2")"
fi
if [ "$wanted_found" = true ]; then
  grep -q 'GNU_STACK.* RW ' <<< "$segments" || wrong+=("a stack that cannot be executed")
  ! grep -q '\.symtab' <<< "$sections" || wrong+=("being stripped")
fi
[ ${#wrong[@]} -eq 0 ] && exit 0
[ "$wanted_found" = true ] && echo "$program lacks:" || echo "not missed in $program:"
printf '  %s\n' "${wrong[@]}"
exit 1
