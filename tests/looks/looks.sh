#!/usr/bin/env bash
# looks.sh BUILD: photographs every screen and compares with the pictures that are kept.
set -euo pipefail
here="$(dirname "$(readlink -f "$0")")"
fresh="$1/tests/looks/fresh"
/usr/bin/python3 -B "$here/photograph.py" "$1" "$fresh"
"$1/tests/looks/tarvik_compare" "$here/kept" "$fresh" && exit
echo "These look different; the new ones are in $fresh. When they are as they should be: tools/looks" >&2
exit 1
