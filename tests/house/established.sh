#!/usr/bin/env bash
# established.sh PAGE TESTS: every test that the page names is in the folder TESTS; prints those that are not.
set -euo pipefail
page="$1"
tests="$2"

# The last column of each table row: `Suite.Name` of GoogleTest, `name()` of a screen's test.
named=$(grep '^|' "$page" | sed -E 's/^.*\|([^|]*)\|$/\1/' | grep -oE '`[^`]+`' | tr -d '`')
[ -n "$named" ] || { echo "no test is named in $page"; exit 1; }

is_there() {
  case "$1" in
    *"()") grep -rqE "^  void ${1%()}\(\)" "$tests" ;;
    *) grep -rqE "^TEST(_F|_P)?\(${1%%.*}, *${1#*.}\)" "$tests" ;;
  esac
}

missing=0
for test in $named; do
  is_there "$test" || { echo "$page names a test that is not there: $test"; missing=1; }
done
exit "$missing"
