#!/usr/bin/env bash
# Builds Quelvar and runs every test: layout of the sources, arrows between folders, release, the Debian package,
# sanitizers, the part below the windows without Qt, static analysis, and the seeds of the fuzz targets.
#   ./test.sh            everything; installs what is missing
#   ./test.sh --rapide   the suite of the dev preset only, installs nothing
#   ./test.sh --avant-envoi   what would be refused in what has changed: layout, arrows, the suite of the dev preset,
#                             analysis of the sources that changed or whose headers did
set -uo pipefail
cd "$(dirname "$0")" || exit 1
. tools/paquets.sh
CMAKE_BUILD_PARALLEL_LEVEL=${CMAKE_BUILD_PARALLEL_LEVEL:-$(nproc)}
export CMAKE_BUILD_PARALLEL_LEVEL
reussis=0
echecs=0
journal=$(mktemp)
trap 'rm -f "$journal"' EXIT

# etape NOM COMMANDE... : one check that passes or fails as a whole; its output is shown when it fails
etape() {
  local nom=$1 debut=$SECONDS
  shift
  if "$@" >"$journal" 2>&1; then
    reussis=$((reussis + 1))
    echo "ok      $nom ($((SECONDS - debut)) s)"
  else
    echecs=$((echecs + 1))
    tail -n 200 "$journal"
    echo "ÉCHEC   $nom"
    return 1
  fi
}

# suite PRESET : builds it and counts every test that ctest runs
suite() {
  etape "construction $1" eval "cmake --preset $1 -DQUELVAR_TESTS=ON $2 && cmake --build --preset $1" || return
  ctest --preset "$1" --progress >"$journal" 2>&1
  local bilan
  bilan=$(sed -n 's/.*% tests passed, \([0-9]*\) tests failed out of \([0-9]*\).*/\1 \2/p' "$journal")
  if [ -z "$bilan" ] || [ "${bilan%% *}" != 0 ]; then cat "$journal"; else tail -n 4 "$journal"; fi
  if [ -z "$bilan" ]; then echecs=$((echecs + 1)); return; fi
  echecs=$((echecs + ${bilan%% *}))
  reussis=$((reussis + ${bilan##* } - ${bilan%% *}))
}

# The commands of the README on the example survey and text, as run.sh shows them; its pictures are those that they draw.
chaine() (
  copie=$(mktemp -d) && trap 'rm -rf "$copie"' EXIT
  racine=$PWD
  cp -r examples/loisirs/. "$copie" && PATH="$racine/build/release/bin:$PATH" && cd "$copie" && sh -e chaine.sh &&
    cmp plan.svg "$racine/docs/images/plan.svg" && cmp effets.svg "$racine/docs/images/effets.svg" &&
    cp -r "$racine/examples/paquets" "$copie/paquets" && cd "$copie/paquets" && sh -e chaine.sh &&
    cmp mots.svg "$racine/docs/images/mots.svg"
)

paquet() { packaging/essai.sh build/release || [ $? = 77 ]; }

tout() {
  etape "paquets" installer "${PAQUETS_NOYAU[@]}" "${PAQUETS_EXEMPLE[@]}" "${PAQUETS_FORMES[@]}" \
    "${PAQUETS_ESSAIS[@]}"
  installer "${PAQUETS_FACULTATIFS[@]}" || true
  etape "paquets de clang" installer_runtime_clang
  etape "mise en page des sources" tools/format.sh --verifier
  etape "sens des flèches" tools/fleches.sh
  suite release -DQUELVAR_BENCH=ON
  etape "chaîne d'exemple" chaine
  etape "paquet Debian" paquet
  suite asan ""
  suite core -DCMAKE_DISABLE_FIND_PACKAGE_Qt6=ON
  etape "analyse statique" tools/tidy.sh build/release
  # The same at every run; chance is for the campaigns.
  etape "graines des lectures au hasard" fuzz/court.sh 0
}

avant_envoi() {
  etape "mise en page des sources" tools/format.sh --verifier
  etape "sens des flèches" tools/fleches.sh
  suite dev ""
  etape "analyse statique" tools/tidy.sh build/dev
}

case "${1:-}" in
  --rapide) suite dev "" ;;
  --avant-envoi) avant_envoi ;;
  "") tout ;;
  *) sed -n '2,9p' "$0"; exit 2 ;;
esac
echo
echo "$reussis passed, $echecs failed"
[ "$echecs" = 0 ]
