#!/usr/bin/env bash
# self_test.sh COMPILER: each rule passes what it should and catches what it is there for.
set -euo pipefail
compiler="$1"
here=$(dirname "$(readlink -f "$0")")
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

statements() {  # COUNT
  local count
  for ((count = 0; count < $1; ++count)); do echo '    ++n;'; done
}

fresh_tree() {
  rm -rf "$scratch/tree"
  mkdir -p "$scratch"/tree/{core,tyres,ui/{base,chart,lists,windows,main},app,objects/core}
  printf '#pragma once\n#include <string>\n' > "$scratch/tree/core/day.h"
  printf '#include "core/day.h"\n' > "$scratch/tree/tyres/rules.cpp"
  printf '#include "tyres/rules.h"\n#include "ui/base/text.h"\n#include "ui_frmX.h"\n' > "$scratch/tree/ui/main/frmX.cpp"
  printf '#include "ui/chart/chart_view.h"\n' > "$scratch/tree/ui/windows/chart_panel.cpp"
  printf '      return EIO;\n' > "$scratch/tree/core/windows_errors.cpp"
  printf '      {EIO, "baj"},\n' > "$scratch/tree/ui/base/guarded.cpp"
  { echo 'int longest() {'; statements 58; echo '}'; } > "$scratch/tree/core/longest.cpp"
  printf 'text.arg(name, rows(1)) + other.arg(name);\n' > "$scratch/tree/ui/main/texts.cpp"
  printf '#include "ui/chart/chart_canvas.h"\n#include "ui/base/text.h"\n#include <qcustomplot.h>\n' > "$scratch/tree/ui/chart/chart_view.cpp"
}

fail() { echo "$*"; exit 1; }

expect_passes() {  # RULE
  "$here/sources.sh" "$1" "$scratch/tree" > /dev/null || fail "rule $1 refuses a tree in order"
}

expect_caught() {  # RULE FILE LINE
  fresh_tree
  printf '%s\n' "$3" > "$scratch/tree/$2"
  ! "$here/sources.sh" "$1" "$scratch/tree" > "$scratch/out" || fail "rule $1 misses: $3"
  grep -q "^$2" "$scratch/out" || fail "rule $1 does not name $2"
}

object_of() {  # SOURCE_TEXT
  printf '%s\n' "$1" | "$compiler" -std=c++20 -O1 -x c++ -c - -o "$scratch/tree/objects/core/x.cpp.o"
  echo "$scratch/tree/objects/core/x.cpp.o" > "$scratch/objects.txt"
}

symbols() { "$here/symbols.sh" "$1" "$scratch/objects.txt" "$scratch/tree/objects" "$2"; }

expect_call_passes() {  # RULE SOURCE_TEXT
  object_of "$2"
  symbols "$1" "$here/allowed.txt" || fail "rule $1 refuses: $2"
}

expect_call_caught() {  # RULE SOURCE_TEXT
  object_of "$2"
  ! symbols "$1" "$here/allowed.txt" > "$scratch/out" || fail "rule $1 misses: $2"
  grep -q '^core/x.cpp ' "$scratch/out" || fail "rule $1 does not name the source"
  echo "$1 core/x\.cpp .*" > "$scratch/exceptions.txt"
  symbols "$1" "$scratch/exceptions.txt" || fail "rule $1 has no exceptions"
}

fresh_tree
for rule in arrows rooms system-headers guards errors placeholders lengths; do expect_passes "$rule"; done
expect_caught arrows core/wrong.cpp '#include "ui/frmX.h"'
expect_caught arrows core/wrong.cpp '#  include "tyres/rules.h"'
expect_caught arrows tyres/wrong.cpp '#include "repairs/log.h"'
expect_caught arrows ui/main/wrong.cpp '#include "app/main.h"'
expect_caught arrows ui/main/wrong.cpp '#include "frmX.h"'
expect_caught errors core/windows_errors.cpp '      return ENOTEMPTY;'
expect_caught rooms ui/main/frmY.cpp '#include "ui/chart/chart_canvas.h"'
expect_caught rooms ui/main/frmY.cpp '#include <qcustomplot.h>'
expect_caught rooms ui/chart/chart_scale.cpp '#include "ui/chart/chart_shapes.h"'
expect_caught rooms ui/chart/chart_view.h '#include "ui/windows/chart_panel.h"'
expect_caught rooms ui/chart/chart_content.h '#include "charts/series.h"'
expect_caught rooms ui/chart/extras.h '#include <QString>'
expect_caught rooms ui/chart/chart_view.cpp '#include "ui/lists/list_view.h"'
expect_caught rooms ui/lists/list_menu.cpp '#include "ui/windows/figy.h"'
expect_caught rooms ui/base/change.h '#include "ui/main/frmX.h"'
expect_caught rooms ui/loose.h '#include <QString>'
expect_caught system-headers core/wrong.cpp '#include <unistd.h>'
expect_caught system-headers tyres/wrong.h '#include <fstream>'
expect_caught system-headers ui/main/wrong.cpp '#include <sys/stat.h>'
expect_caught placeholders ui/main/wrong.cpp 'text.arg(name(1)).arg(rows);'
expect_caught placeholders ui/main/wrong.cpp $'text\n  .arg(name)\n  .arg(rows);'
expect_caught lengths core/wrong.cpp "$(printf 'int wrong(int a,\n          int b) {\n'; statements 58; echo '}')"
expect_caught lengths core/wrong.h "$(printf 'struct S {\n  S() : n(1) {\n'; statements 59; printf '  }\n};')"
expect_caught guards core/wrong.h '#include <string>'

fresh_tree
expect_call_passes numbers '#include <string>
std::string text(int value) { return std::to_string(value); }'
expect_call_caught numbers '#include <string>
std::string text(double value) { return std::to_string(value); }'
expect_call_caught numbers '#include <string>
double value(const std::string& text) { return std::stod(text); }'
expect_call_caught numbers '#include <cstdlib>
double value(const char* text) { return std::strtod(text, nullptr); }'
expect_call_caught numbers '#include <cstdio>
int text(char* into, double value) { return std::snprintf(into, 9, "%f", value); }'
expect_call_caught numbers '#include <ostream>
void show(std::ostream& out, double value) { out << value; }'
expect_call_caught numbers '#include <clocale>
void choose() { std::setlocale(LC_ALL, ""); }'
expect_call_passes disk 'int rename_all();
int renamed() { return rename_all(); }'
expect_call_caught disk '#include <fstream>
void write() { std::ofstream("x") << 1; }'
expect_call_caught disk '#include <cstdio>
int move() { return std::rename("a", "b"); }'
expect_call_caught disk '#include <fcntl.h>
int open_it() { return open("a", O_RDONLY); }'
expect_call_caught disk '#include <filesystem>
void away() { std::filesystem::remove("a"); }'
expect_call_caught clock '#include <ctime>
long now() { return std::time(nullptr); }'
expect_call_caught clock '#include <chrono>
auto now() { return std::chrono::system_clock::now(); }'

fresh_tree
mkdir -p "$scratch/tree/tests"
printf 'TEST(Suite, Name) {}\n' > "$scratch/tree/tests/logic_test.cpp"
printf '  void name() {\n' > "$scratch/tree/tests/screen_test.cpp"
# shellcheck disable=SC2016
printf '| a rule | what it does | `Suite.Name`, `name()` |\n' > "$scratch/tree/page.md"
"$here/established.sh" "$scratch/tree/page.md" "$scratch/tree/tests" || fail "a page in order is refused"
for gone in Suite.Nam Name.Suite 'nam()'; do
  printf '| a rule | what it does | `%s` |\n' "$gone" > "$scratch/tree/page.md"
  ! "$here/established.sh" "$scratch/tree/page.md" "$scratch/tree/tests" > /dev/null || fail "a page that names $gone passes"
done
