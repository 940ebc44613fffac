#!/usr/bin/env bash
# Times whole processes of the release build on large generated surveys and prints the table of the README.
# Each figure is the best of several runs, files in the page cache.
#   bench/mesure.sh [FOIS]     default 7
set -euo pipefail
racine=$(cd "$(dirname "$0")/.." && pwd)
bin="$racine/build/release/bin"
fois=${1:-7}
travail=$(mktemp -d)
trap 'rm -rf "$travail"' EXIT
cd "$travail"

cmake --build "$racine/build/release" --target quelvar-batch quelvar-genere quelvar-plancher quelvar-chrono >/dev/null
"$bin/quelvar-genere" . CENT 100000 100
"$bin/quelvar-genere" . MILLION 1000000 100
"$bin/quelvar-genere" . TCENT 100000 100 --csv
"$bin/quelvar-genere" . TMILLION 1000000 100 --csv

# ligne NOM FICHIER AVANT COMMANDE... : one row of the table
ligne() {
  local nom=$1 taille=$(($(stat -c %s "$2") / 1000000)) avant=$3 mur utilisateur systeme memoire
  shift 3
  read -r mur utilisateur systeme memoire < <("$bin/quelvar-chrono" "$fois" "$avant" "$@")
  echo "| $nom | $taille Mo | $mur s | $utilisateur s | $systeme s | $memoire Mio |"
}

# importer GENERIQUE : the import with nothing left from the run before
importer() {
  ligne "import-csv" "$1.CSV" "rm -f $1.DAT $1.POS $1.PO2 $1.IMP" "$bin/quelvar-batch" import-csv "$1"
}

echo "| programme | source | durée | dont calcul | dont système | mémoire |"
echo "|---|---:|---:|---:|---:|---:|"
for g in CENT MILLION; do
  ligne "plancher : décoder et compter" $g.DAT "" "$bin/quelvar-plancher" dat $g
  ligne "triapl" $g.DAT "" "$bin/quelvar-batch" triapl $g
done
for g in TCENT TMILLION; do
  ligne "plancher : voir chaque octet" $g.CSV "" "$bin/quelvar-plancher" octets $g.CSV
  importer $g
done
