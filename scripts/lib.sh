# What the scripts share; each sources it. They all run from the tree's root.

say() { printf '== %s\n' "$*"; }

die() {
  printf '%s: error: %s\n' "${0##*/}" "$*" >&2
  exit 1
}
