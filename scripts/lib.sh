# All scripts source this file. They run in the root of the tree.

say() { printf '== %s\n' "$*"; }

die() {
  printf '%s: error: %s\n' "${0##*/}" "$*" >&2
  exit 1
}

# ccache sees paths relative to the tree, so clones at different paths share its results. It
# overlooks the locale, because ctest sets other locale variables than the shell.
export CCACHE_BASEDIR=$PWD CCACHE_NOHASHDIR=1 CCACHE_SLOPPINESS=locale
# Programs with sanitizers read this.
export LSAN_OPTIONS="suppressions=$PWD/scripts/lsan.supp:print_suppressions=0"

# run_ctest BUILD [OPTION...]: the tests of a build. On a busy machine Wine may end a program, or
# a display may lose a key. So a test that failed runs once more, alone. The output names it.
run_ctest() {
  ctest --test-dir "$1" "${@:2}" && return
  say "These tests failed and run again, alone:"
  ctest --test-dir "$1" --rerun-failed -N | sed -n 's/^ *Test *#[0-9]*: /  /p'
  ctest --test-dir "$1" "${@:2}" -j 1 --rerun-failed
}
