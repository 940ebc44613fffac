#!/usr/bin/env bash
# Refuses a program that has become slower: runs the companion of another revision and the present one in turn on the
# same generated survey and compares the best times.
#   bench/compare.sh [REVISION] [TOURS]    default: origin/main or HEAD~1, 15 turns; fails above 8 %
set -euo pipefail
racine=$(cd "$(dirname "$0")/.." && pwd)
cd "$racine"
revision=${1:-$(git rev-parse -q --verify origin/main || git rev-parse HEAD~1)}
tours=${2:-15}
tolerance=8
avant=$racine/build/avant
bin=$racine/build/release/bin
travail=$(mktemp -d)
trap 'rm -rf "$avant/sources" "$travail"; git worktree prune' EXIT

# muet COMMANDE... : runs it, and shows what it said when it fails
muet() { "$@" >"$travail/journal" 2>&1 || { tail -n 40 "$travail/journal" >&2; echo "échec : $*" >&2; exit 2; }; }

rm -rf "$avant/sources"
muet git worktree prune
muet git worktree add --force --detach "$avant/sources" "$revision"
muet cmake -S "$avant/sources" -B "$avant/construction" -G Ninja -DCMAKE_BUILD_TYPE=Release \
  "-DCMAKE_CXX_FLAGS_RELEASE=-O2 -DNDEBUG" -DQUELVAR_FORMS=OFF -DQUELVAR_TESTS=OFF
muet cmake --build "$avant/construction" --target quelvar-batch
muet cmake --preset release
muet cmake --build --preset release --target quelvar-batch quelvar-genere quelvar-chrono

cd "$travail"
"$bin/quelvar-genere" . CENT 100000 100
"$bin/quelvar-genere" . TCENT 100000 100 --csv
"$bin/quelvar-genere" . BURT 20000 100 --actives 5
trop=0
# mesurer NOM EFFACE COMMANDE... : the command with each companion in turn
mesurer() {
  local nom=$1 efface=$2 t0=999 t1=999 t
  shift 2
  for ((tour = 0; tour < tours; tour++)); do
    read -r t _ < <("$bin/quelvar-chrono" 1 "$efface" "$avant/construction/bin/quelvar-batch" "$@")
    t0=$(awk "BEGIN { print ($t < $t0) ? $t : $t0 }")
    read -r t _ < <("$bin/quelvar-chrono" 1 "$efface" "$bin/quelvar-batch" "$@")
    t1=$(awk "BEGIN { print ($t < $t1) ? $t : $t1 }")
  done
  awk -v nom="$nom" -v a="$t0" -v b="$t1" -v seuil=$tolerance 'BEGIN {
    ecart = 100 * (b - a) / a
    printf "%-14s %8.3f s %8.3f s %+6.1f %%\n", nom, a, b, ecart
    exit ecart > seuil && b - a > 0.002 }' || trop=1
}
mesurer triapl "rm -f CENT.TAP" triapl CENT
mesurer croise "rm -f CENT.TCR" croise CENT lignes=A00,A01,A02,A04,A05 colonnes=A06,A08,A0A,A0C,A0D
mesurer import-csv "rm -f TCENT.DAT TCENT.POS TCENT.PO2 TCENT.IMP" import-csv TCENT
mesurer posmod "rm -f BURT.BRT BURT.CDG BURT.PRT" posmod BURT oublier=oui codeszero=non
mesurer ecapem "rm -f BURT.PEM BURT.PEL BURT.PRO" ecapem BURT intitules=courts
mesurer anecar "rm -f BURT.AFC BURT.FAJ BURT.FAI BURT.FJ2 BURT.FI2" anecar BURT facteurs=5
[ "$trop" = 0 ] || { echo "Plus lent de plus de $tolerance %" >&2; exit 1; }
