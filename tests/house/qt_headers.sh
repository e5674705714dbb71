#!/usr/bin/env bash
# qt_headers.sh COMPILER LOGIC_FLAGS [SCREEN_FLAGS]: a source with the flags of a logic folder cannot include
# Qt. The same source compiles without that include, and with it where the flags are a screen's,
# so that it is the include that fails and nothing else. The flags come in files.
set -euo pipefail
compiler="$1" logic_flags="$2" screen_flags="${3:-}"

compiles() {  # FLAGS_FILE INCLUDE
  local -a flags
  mapfile -t flags < "$1"
  printf '%s\n#include "core/day.h"\nint main() { return tarvik::core::Day{}.number; }\n' "$2" |
    "$compiler" -std=c++20 -fPIC -fsyntax-only "${flags[@]}" -x c++ - 2> /dev/null
}

compiles "$logic_flags" "" || { echo "a plain logic source does not compile"; exit 1; }
for header in QString QtGlobal QtCore/QString QWidget QtWidgets/QWidget qcustomplot.h; do
  ! compiles "$logic_flags" "#include <$header>" || { echo "a logic source can include <$header>"; exit 1; }
done
[ -z "$screen_flags" ] || compiles "$screen_flags" "#include <QWidget>" ||
  { echo "a screen's source cannot include <QWidget>: the check proves nothing"; exit 1; }
