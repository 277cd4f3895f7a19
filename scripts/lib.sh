# What the scripts share; each sources it. They all run from the tree's root.

say() { printf '== %s\n' "$*"; }

die() {
  printf '%s: error: %s\n' "${0##*/}" "$*" >&2
  exit 1
}

# Clones at different paths share what the compiler made: ccache then sees paths
# relative to the tree.
export CCACHE_BASEDIR=$PWD CCACHE_NOHASHDIR=1

# run_ctest BUILD [OPTION...]: the tests of a build. Wine's server now and then drops a
# program, and a busy display a key: what failed runs once more, alone, and is named.
run_ctest() {
  ctest --test-dir "$1" "${@:2}" && return
  say "These failed and run again, alone:"
  ctest --test-dir "$1" --rerun-failed -N | sed -n 's/^ *Test *#[0-9]*: /  /p'
  ctest --test-dir "$1" "${@:2}" -j 1 --rerun-failed
}
