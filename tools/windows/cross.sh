# What the cross builds have in common; sourced after setup.sh, never run.
#
#   cross_build PRESET TARGET...   builds with Qt of the cache folder, from nothing when that is another one

# What the environment asks of this machine's own compiler is not for the cross compiler.
unset LDFLAGS CFLAGS CXXFLAGS CPPFLAGS

cross_build() {
  TARVIK_WINDOWS_QT=$(tools/windows/toolkit)
  export TARVIK_WINDOWS_QT
  local known="build/$1/toolkit"
  [ "$(cat "$known" 2> /dev/null)" = "$TARVIK_WINDOWS_QT" ] || rm -rf "build/$1"
  mkdir -p "build/$1"
  echo "$TARVIK_WINDOWS_QT" > "$known"
  build "$@"
}
