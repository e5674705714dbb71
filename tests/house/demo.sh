#!/usr/bin/env bash
# demo.sh MAKE_DEMO LOG.csv: the demonstration household is whole, the same each time, and only made of a log.
set -euo pipefail
make_demo="$1" log="$2"
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

expect_size() {  # FILE BYTES
  [ "$(stat -c %s "$scratch/one/$1")" -eq "$2" ] || { echo "$1 is not of $2 bytes"; exit 1; }
}

expect_refused() {  # LOG FOLDER TODAY
  if "$make_demo" "$@" 2> "$scratch/told"; then echo "make_demo takes $*"; exit 1; fi
}

mkdir "$scratch/one" "$scratch/two" "$scratch/none"
"$make_demo" "$log" "$scratch/one" 2013.07.05.
"$make_demo" "$log" "$scratch/two" 2013.07.05.
diff -r "$scratch/one" "$scratch/two"

expect_size rendsz.dat 30
expect_size set.dat 12
expect_size Gumik.dat $((3 * 71))
expect_size figyel.dat $((4 * 68))
expect_size figyDatum.dat $((3 * 68))
expect_size Szerviz.dat $((12 * 186))
expect_size KLM456/napiadat.dat $(((43 + 15) * 156))  # the whole part's fill-ups and what was added between
for plate in ABC123 XYZ789; do [ -s "$scratch/one/$plate/napiadat.dat" ]; done

echo "date,odometer_km,litres,cost_ft,full" > "$scratch/empty.csv"
expect_refused "$scratch/empty.csv" "$scratch/none" 2013.07.05.
expect_refused "$scratch/missing.csv" "$scratch/none" 2013.07.05.
expect_refused "$log" "$scratch/no-such-folder" 2013.07.05.
grep -q "no such folder: $scratch/no-such-folder" "$scratch/told"
expect_refused "$log" "$scratch/none" 2013.02.30.
