#!/usr/bin/env bash
# symbols.sh RULE OBJECTS BUILD ALLOWED: checks by one rule what the object files named in the file OBJECTS,
# which lie under the folder BUILD, call.
#
# The compiler's own answer, and not the text of the sources, says which overload is called: the
# conversion of a whole number passes where that of a double fails. ALLOWED lists the exceptions,
# one "RULE SOURCE SYMBOL" a line, the last two as patterns.
set -euo pipefail
shopt -s inherit_errexit
rule="$1" objects="$2" build="$3" allowed="$4"

case "$rule" in
  # Numbers that a person reads go through core/number_format.h and core/number_text.h alone: these
  # follow the machine's locale, or ignore the Hungarian one, or round the nearest binary number.
  numbers) forbidden='(__)?v?(f|s|sn|as)?printf(_chk)?|strto[dfl]d?|ato[fil]|setlocale|newlocale|uselocale
    |(__)?isoc99_s?scanf|QString::(number|setNum|arg|asprintf|toDouble|toFloat)\(double.*|QString::(asprintf|vasprintf|toDouble|toFloat)\(.*
    |QStringView::to(Double|Float)\(.*|QByteArray::(number|setNum)\(double.*|QByteArray::toDouble\(.*
    |QTextStream::operator<<\((double|float)\)|QLocale::to(String\(double|Double|Float|CurrencyString).*
    |.*std::ostream::(_M_insert<(long )?double>|operator<<)\((long )?double\)|.*std::istream::_M_extract<(long )?double>.*
    |std::from_chars\(char const\*, char const\*, (float|double|long double)&.*
    |std::to_chars\(char\*, char\*, (float|double|long double).*' ;;
  # The data reach the disk through one class. Qt's files hide a full disk until it is too late.
  disk) forbidden='(f|fd)?open(at|dir)?(64)?|creat(64)?|p?(read|write)v?(64)?|fwrite|fread|renameat2?|rename|unlink(at)?|remove|mkdir(at)?
    |rmdir|f?truncate(64)?|fsync|fdatasync|flock|fcntl(64)?|std::filesystem::(?!current_path|__cxx11::path).*|std::basic_[io]?f(stream|ilebuf)<.*
    |Q(File|SaveFile|TemporaryFile|TemporaryDir|Settings|LockFile)::Q.*|QFile::(open|remove|rename|copy)\(.*
    |QDir::(mkdir|mkpath|remove|rmdir|rename|removeRecursively|setCurrent)\(.*' ;;
  # What day it is comes from the clock that the program or a test passes in.
  clock) forbidden='time|gettimeofday|clock_gettime|localtime(_r)?|gmtime(_r)?|std::chrono::_V2::system_clock::now\(\)
    |QDate::currentDate\(.*|QTime::currentTime\(.*|QDateTime::current.*' ;;
  *) echo "no such rule: $rule" >&2; exit 2 ;;
esac
forbidden=$(tr -d '\n' <<< "$forbidden" | sed -E 's/ +\|/|/g')

# "core/day.cpp symbol" for each symbol that an object file wants from elsewhere.
wanted_symbols() {
  local object source
  while read -r object; do
    source=$(sed -E 's@CMakeFiles/[^/]*\.dir/@@; s@\./@@g; s@\.o$@@' <<< "${object#"$build"/}")
    nm --demangle --undefined-only "$object" | sed -E "s@^ +[Uwv] @$source @; s/\@.*//"
  done < <(grep '\.o$' "$objects")
}

is_allowed() {
  local wanted_rule source_pattern symbol_pattern
  while read -r wanted_rule source_pattern symbol_pattern; do
    [ "$wanted_rule" = "$rule" ] && grep -qxE "$source_pattern $symbol_pattern" <<< "$1" && return 0
  done < <(grep -v '^#' "$allowed")
  return 1
}

wanted=$(wanted_symbols)
[ -n "$wanted" ] || { echo "no object files in $objects"; exit 1; }
found=$(grep -P "^\S+ ($forbidden)\$" <<< "$wanted" | sort -u | while read -r line; do
  is_allowed "$line" || echo "$line"
done || true)
[ -z "$found" ] || { printf 'Against the rule "%s", source and what it calls:\n%s\n' "$rule" "$found"; exit 1; }
