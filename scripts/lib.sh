# What the scripts share; each sources it. They all run from the tree's root.

say() { printf '== %s\n' "$*"; }

die() {
  printf '%s: error: %s\n' "${0##*/}" "$*" >&2
  exit 1
}

# Clones at different paths share what the compiler made: ccache then sees paths
# relative to the tree.
export CCACHE_BASEDIR=$PWD CCACHE_NOHASHDIR=1
# For programs with sanitizers.
export LSAN_OPTIONS="suppressions=$PWD/scripts/lsan.supp:print_suppressions=0"

# run_ctest BUILD [OPTION...]: the tests of a build. A busy machine makes a test fail
# now and then, for Wine drops a program or a display a key. So a test that failed runs
# once more, alone, and is named.
run_ctest() {
  ctest --test-dir "$1" "${@:2}" && return
  say "These failed and run again, alone:"
  ctest --test-dir "$1" --rerun-failed -N | sed -n 's/^ *Test *#[0-9]*: /  /p'
  ctest --test-dir "$1" "${@:2}" -j 1 --rerun-failed
}
