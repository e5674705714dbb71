#!/usr/bin/env bash
# sources.sh RULE ROOT: checks the sources under ROOT by one rule; prints what breaks it and fails.
set -euo pipefail
rule="$1"
cd "$2"

# Which folders a folder may include from. Between two feature folders there is no arrow.
declare -A arrows=(
  [core]="core"
  [settings]="settings core"
  [tyres]="tyres core"
  [repairs]="repairs core"
  [reminders]="reminders core"
  [charts]="charts core"
  [print]="print core"
  [exchange]="exchange core"
  [ui]="ui core settings tyres repairs reminders charts print exchange"
  [app]="app ui core settings tyres repairs reminders charts print exchange"
)
folders=(core settings tyres repairs reminders charts print exchange ui app)

# The two halves of the one file that talks to the system, and what only they may include.
system_file='core/(posix|windows)_(file_system|errors|paths)\.cpp'
system_headers='unistd\.h|fcntl\.h|sys/[a-z/]+\.h|dirent\.h|windows\.h|stdio\.h|cstdio|stdlib\.h|filesystem|fstream|locale|clocale|locale\.h'

sources_of() { find "$1" -name '*.cpp' -o -name '*.h' | sort; }

# FILE:LINE:TEXT of the includes of a folder that match a pattern.
includes_of() {
  local files
  mapfile -t files < <(sources_of "$1")
  [ ${#files[@]} -eq 0 ] || grep -HnE "^[[:space:]]*#[[:space:]]*include[[:space:]]*$2" "${files[@]}" || true
}

wrong_arrows() {
  local folder allowed
  for folder in "${folders[@]}"; do
    [ -d "$folder" ] || continue
    allowed="${arrows[$folder]// /|}"
    # What the build generates from forms and classes lies beside them.
    includes_of "$folder" '"' | grep -vE "include \"(($allowed)/|ui_[A-Za-z_]+\.h\"|[A-Za-z_]+\.moc\")" || true
  done
}

wrong_system_headers() {
  local folder
  for folder in "${folders[@]}"; do
    [ -d "$folder" ] || continue
    includes_of "$folder" "<($system_headers)>" | grep -vE "^$system_file:" || true
  done
}

# Inside the screens' folder the same holds between its rooms, from the ground up. A room that is not named has no
# place there, and no file lies outside a room.
declare -A rooms=(
  [base]="base"
  [look]="look base"
  [chart]="chart base"
  [print]="print base"
  [lists]="lists look base"
  [exchange]="exchange lists look base"
  [windows]="windows exchange print lists look chart base"
  [main]="main windows exchange print lists look chart base"
)

wrong_room_arrows() {
  local room allowed
  for room in ui/*; do
    room="${room#ui/}"
    [ "$room" != CMakeLists.txt ] || continue
    [ -n "${rooms[$room]:-}" ] || { echo "ui/$room: is no room"; continue; }
    [ -d "ui/$room" ] || continue
    allowed="${rooms[$room]// /|}"
    includes_of "ui/$room" '"ui/' | grep -vE "include \"ui/($allowed)/" || true
  done
}

# The chart knows nothing of the logic, and its files know each other from the content to the view and never back.
# A screen knows the view and the content. The library behind it is known to no other file.
chart=ui/chart
chart_order=("content" "scale|thinning" "words" "shapes|solid_shapes" "style" "axis_labels|plottables" "canvas"
  "view|accessible|picture")

# What breaks the order inside the chart.
wrong_steps() {
  local known="" names file is_known
  for names in "${chart_order[@]}"; do
    known+="${known:+|}$names"
    for file in "$chart"/chart_*; do
      [[ "$file" =~ ^$chart/chart_($names)\.(cpp|h)$ ]] || continue
      grep -HnE '^[[:space:]]*#[[:space:]]*include[[:space:]]*"' "$file" |
        grep -vE "include \"($chart/chart_($known)\.h|ui/base/[a-z_]+\.h)\"" || true
    done
  done
  is_known="^$chart/chart_($known)\.(cpp|h)$"
  for file in "$chart"/*; do
    [[ "$file" =~ $is_known ]] || echo "$file: has no place in the order"
  done
}

wrong_rooms() {
  [ -d ui ] || return 0
  wrong_room_arrows
  [ -d "$chart" ] || return 0
  wrong_steps
  includes_of ui '"ui/chart/' | grep -vE "^$chart/|chart_(view|content)\.h\"" || true
  includes_of ui '<qcustomplot' | grep -v "^$chart/" || true
}

wrong_guards() {
  local header
  find "${folders[@]}" tests tools fuzz benchmarks -name '*.h' 2> /dev/null | sort | while read -r header; do
    [ "$(head -n 1 "$header")" = "#pragma once" ] || echo "$header: does not begin with #pragma once"
  done || true
}

# The names that Windows' errors get are numbers of their own there, and each has its words on the screen.
wrong_errors() {
  local error
  [ -f core/windows_errors.cpp ] || return 0
  grep -oE 'return E[A-Z0-9]+' core/windows_errors.cpp | cut -d ' ' -f 2 | sort -u | while read -r error; do
    grep -q "{$error, \"" ui/base/guarded.cpp || echo "core/windows_errors.cpp: $error has no words in ui/base/guarded.cpp"
  done
}

# A text that fills one placeholder may bring the next one with it: a plate ABC%1, a file 50%2.csv. Of the answers of
# grep, that nothing was found is the good one.
wrong_placeholders() {
  local files
  [ -d ui ] || return 0
  mapfile -t files < <(sources_of ui)
  grep -lzP '\.arg(\((?:[^()]++|(?1))*\))\s*\.arg\(' "${files[@]}" | sed 's/$/: fills placeholders one after the other/' ||
    [ $? -eq 1 ]
}

# No function has more than 60 lines. It begins at the margin or in a class, whose indent its end has too.
wrong_lengths() {
  find "${folders[@]}" tests tools fuzz benchmarks \( -name '*.cpp' -o -name '*.h' \) -print0 2> /dev/null | sort -z |
    xargs -0 awk '
      FNR == 1 { isHead = isInside = 0 }
      !isInside && !isHead && /^(  )?[A-Za-z~][^;]*\(/ && !/;$/ {
        match($0, /^ */); margin = substr($0, 1, RLENGTH); first = FNR; isHead = 1
      }
      isHead && /(;|\})$/ { isHead = 0 }
      isHead && /\{$/ { isInside = 1; isHead = 0 }
      isInside && $0 ~ "^" margin "}" {
        if (FNR - first >= 60) print FILENAME ":" first ": a function of " FNR - first + 1 " lines"
        isInside = 0
      }' || true
}

case "$rule" in
  arrows) found=$(wrong_arrows) ;;
  system-headers) found=$(wrong_system_headers) ;;
  rooms) found=$(wrong_rooms) ;;
  guards) found=$(wrong_guards) ;;
  errors) found=$(wrong_errors) ;;
  lengths) found=$(wrong_lengths) ;;
  placeholders) found=$(wrong_placeholders) ;;
  *) echo "no such rule: $rule" >&2; exit 2 ;;
esac
[ -z "$found" ] || { printf 'Against the rule "%s":\n%s\n' "$rule" "$found"; exit 1; }
