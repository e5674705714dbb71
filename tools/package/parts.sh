# What the packages of both systems have in common; sourced after setup.sh, never run.
#
#   version                        the program's, as CMakeLists.txt sets it
#   put_papers FOLDER              manual, licence and first steps, the same in every package
#   put_licences FOLDER PACKAGE... the licences of these Debian packages, and which sources they are
#   seal FILE                      writes the SHA-256 of a finished package beside it, and its signature where
#                                  TARVIK_SIGNING_KEY names the publisher's key
#
# and the time that every file in a package has, SOURCE_DATE_EPOCH: when its sources were committed, so that the
# same sources make the same bytes.

PUBLIC_KEY=packaging/tarvik.pub
SOURCE_DATE_EPOCH=$(git log -1 --format=%ct 2> /dev/null) || SOURCE_DATE_EPOCH=1767225600  # 2026, without a history
export SOURCE_DATE_EPOCH

version() { sed -n 's/^project(Tarvik VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt; }

put_papers() {
  tools/manual "$1"
  cp packaging/OLVASSEL.txt "$1/"
  cp LICENSE "$1/LICENSE.txt"
}

put_licences() {
  local folder="$1" package
  shift
  mkdir -p "$folder"
  for package in "$@"; do
    cp -L "/usr/share/doc/$package/copyright" "$folder/$package.txt"
  done
  # The texts that Debian's copyright files only name.
  grep --only-matching --no-filename '/usr/share/common-licenses/[A-Za-z0-9.-]*[A-Za-z0-9]' "$folder"/*.txt |
    sort --unique | xargs cp --dereference --target-directory "$folder"
  { echo "A programmal együtt adott részek forrása: Debian 12, ezek a forráscsomagok."
    dpkg-query -W -f='${source:Package} ${source:Version}\n' "$@" | sort --unique; } > "$folder/FORRASOK.txt"
}

# Only who has the publisher's key can sign. That it is the one whose public half is in the repository is checked
# as the receiver checks it.
sign() {
  local file="$1"
  rm -f "$file.minisig"
  if [ -z "${TARVIK_SIGNING_KEY:-}" ]; then
    echo "Not signed: TARVIK_SIGNING_KEY names no key." >&2
    return
  fi
  [ -f "$PUBLIC_KEY" ] || fail "$PUBLIC_KEY, the public half of the publisher's key, is not there"
  need_packages SIGNING_PACKAGES
  minisign -S -s "$TARVIK_SIGNING_KEY" -t "$(basename "$file")" -m "$file" > /dev/null
  minisign -V -q -p "$PUBLIC_KEY" -m "$file" && return
  rm -f "$file.minisig"
  fail "$PUBLIC_KEY is not the public half of $TARVIK_SIGNING_KEY"
}

seal() {
  (cd "$(dirname "$1")" && sha256sum "$(basename "$1")" > "$(basename "$1").sha256")
  sign "$1"
}
