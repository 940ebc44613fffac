#!/usr/bin/env bash
# Refuses a program that has become slower: runs the companion of another revision and the present one in turn on every
# row of the table of the README (bench/lignes.sh) and compares the best times.
#   bench/compare.sh [REVISION] [TOURS] [MOTIF]
# REVISION: origin/main or HEAD~1, or the path of a companion that is built; TOURS: 7; MOTIF: rows whose name has it.
# Fails above 8 %. A row above it is given up to four times as many turns: what the machine did meanwhile goes, what the
# program does stays. A short command is run several times a turn, so that each turn of each row lasts long enough to be
# told from what the machine does beside it.
set -euo pipefail
racine=$(cd "$(dirname "$0")/.." && pwd)
cd "$racine"
revision=${1:-$(git rev-parse -q --verify origin/main || git rev-parse HEAD~1)}
tours=${2:-7}
motif=${3:-}
tolerance=8
duree_du_tour=0.1  # seconds that a turn of a companion lasts at least
avant=$racine/build/avant
bin=$racine/build/release/bin
travail=$(mktemp -d)
trap 'cd "$racine" && rm -rf "$avant/sources" "$travail" && git worktree prune' EXIT

# muet COMMANDE... : runs it, and shows what it said when it fails
muet() { "$@" >"$travail/journal" 2>&1 || { tail -n 40 "$travail/journal" >&2; echo "échec : $*" >&2; exit 2; }; }

if [ -x "$revision" ]; then ancien=$(realpath "$revision")
else
  rm -rf "$avant/sources"
  muet git worktree prune
  muet git worktree add --force --detach "$avant/sources" "$revision"
  muet cmake -S "$avant/sources" -B "$avant/construction" -G Ninja -DCMAKE_BUILD_TYPE=Release \
    "-DCMAKE_CXX_FLAGS_RELEASE=-O2 -DNDEBUG" -DQUELVAR_FORMS=OFF -DQUELVAR_TESTS=OFF
  muet cmake --build "$avant/construction" --target quelvar-batch
  ancien=$avant/construction/bin/quelvar-batch
fi
muet cmake --preset release
muet cmake --build --preset release --target quelvar-batch quelvar-genere quelvar-plancher quelvar-chrono

cd "$travail"
trop=0
# plus_lent ANCIEN NOUVEAU : seconds
plus_lent() { awk -v a="$1" -v b="$2" -v seuil=$tolerance 'BEGIN { exit !(100 * (b - a) > seuil * a) }'; }

# salve SECONDES : how many times a command of that length is run in a turn
salve() { awk -v t="$1" -v duree=$duree_du_tour 'BEGIN { n = int(duree / t) + 1; print (t >= duree) ? 1 : n }'; }

# A row with each companion in turn. The floors have none; a row that was not asked for runs once, since others read
# what it makes.
ligne() {
  local nom=$1 avant=$3 t0=999 t1=999 fois=1 t tour
  shift 3
  [[ "$*" == *"$bin/quelvar-batch"* ]] || return 0
  if [[ $nom != *"$motif"* ]]; then
    "$@" >/dev/null 2>&1 || true
    return 0
  fi
  for ((tour = 0; tour < tours || tour < 4 * tours && $(plus_lent "$t0" "$t1" && echo 1 || echo 0); tour++)); do
    if ! read -r t _ < <("$bin/quelvar-chrono" "$fois" "$avant" "${@//"$bin/quelvar-batch"/"$ancien"}" 2>/dev/null); then
      printf '%-50s nouveau\n' "$nom"
      return 0
    fi
    t0=$(awk "BEGIN { print ($t < $t0) ? $t : $t0 }")
    read -r t _ < <("$bin/quelvar-chrono" "$fois" "$avant" "$@" 2>"$travail/.dit") ||
      { cat "$travail/.dit" >&2; echo "échec : $*" >&2; exit 2; }
    t1=$(awk "BEGIN { print ($t < $t1) ? $t : $t1 }")
    fois=$(salve "$t0")
  done
  awk -v nom="$nom" -v a="$t0" -v b="$t1" 'BEGIN {
    printf "%-50s %8.3f s %8.3f s %+6.1f %%\n", nom, a, b, (a > 0 ? 100 * (b - a) / a : 0) }'
  ! plus_lent "$t0" "$t1" || trop=1
}
. "$racine/bench/lignes.sh"
[ "$trop" = 0 ] || { echo "Plus lent de plus de $tolerance %" >&2; exit 1; }
