#!/usr/bin/env bash
# play.sh MONKEY MAKE_DEMO LOG SEED ACTIONS: lets the monkey loose on a household that goes with it.
set -euo pipefail
home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT
"$2" "$3" "$home" 2026.11.21.
cd "$home"
QT_QPA_PLATFORM=offscreen CUPS_SERVER=/nowhere HOME="$home" "$1" "$home" "$4" "$5"
