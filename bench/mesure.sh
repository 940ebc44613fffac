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

# ligne NOM FICHIER AVANT COMMANDE... : one row of the table
ligne() {
  local nom=$1 taille=$((($(stat -c %s "$2") + 500000) / 1000000)) avant=$3 mur utilisateur systeme memoire
  shift 3
  read -r mur utilisateur systeme memoire < <("$bin/quelvar-chrono" "$fois" "$avant" "$@")
  LC_ALL=C printf '| %s | %s Mo | %.3f s | %.3f s | %.3f s | %s Mio |\n' "$nom" "$taille" "$mur" "$utilisateur" "$systeme" "$memoire"
}

echo "| programme | source | durée | dont calcul | dont système | mémoire |"
echo "|---|---:|---:|---:|---:|---:|"
. "$racine/bench/lignes.sh"
