# What the scripts share; each sources it. They all run from the tree's root.

say() { printf '== %s\n' "$*"; }

die() {
  printf '%s: error: %s\n' "${0##*/}" "$*" >&2
  exit 1
}

# run_ctest BUILD [OPTION...]: the tests of a build. Wine's server now and then drops a
# program that has just come to it, which says nothing of the program: where that was
# reported, what failed runs once more.
run_ctest() {
  ctest --test-dir "$1" "${@:2}" && return
  grep -qs 'wine client error' "$1/Testing/Temporary/LastTest.log" || return 1
  say "Wine dropped a test; what failed runs again"
  ctest --test-dir "$1" "${@:2}" --rerun-failed
}
