#!/usr/bin/env bash
# Builds Quelvar and runs every test: layout of the sources, arrows between folders, release, the Debian package,
# sanitizers, the part below the windows without Qt, static analysis, and the seeds of the fuzz targets.
#   ./test.sh            everything; installs what is missing
#   ./test.sh --rapide   the suite of the dev preset only, installs nothing
#   ./test.sh --avant-envoi   what would be refused in what has changed, installs nothing: layout, arrows, cards of the
#                             package, fuzz targets as clang reads them, the suite of the dev preset and the example
#                             chain, analysis of the sources that changed or whose headers did, and, where a former
#                             ./test.sh has left a build with the sanitizers, the tests of the folders that changed;
#                             the last two end when three minutes are near, and tell what they leave
set -uo pipefail
cd "$(dirname "$0")" || exit 1
. tools/paquets.sh
CMAKE_BUILD_PARALLEL_LEVEL=${CMAKE_BUILD_PARALLEL_LEVEL:-$(nproc)}
export CMAKE_BUILD_PARALLEL_LEVEL
reussis=0
echecs=0
sautes=0
journal=$(mktemp)
a_cote= # the step that goes on beside the others, if there is one, and what it has said
journal_a_cote=$(mktemp)
trap '[ -z "$a_cote" ] || kill "$a_cote" 2>/dev/null; rm -f "$journal" "$journal_a_cote"' EXIT

# From this second on the steps that can be cut short before sending begin nothing more, and tell what they leave to the
# whole run: what is then going on ends within three minutes.
readonly ATTENTE=150

# etape NOM COMMANDE... : one check that passes or fails as a whole; its output is shown when it fails, and the lines
# "à savoir" of one that passes. The state 77 says that a tool for it is missing.
etape() {
  local nom=$1 debut=$SECONDS etat=0
  shift
  "$@" >"$journal" 2>&1 || etat=$?
  if [ $etat = 0 ]; then
    reussis=$((reussis + 1))
    echo "ok      $nom ($((SECONDS - debut)) s)"
    grep '^à savoir' "$journal" || true
  elif [ $etat = 77 ]; then
    sautes=$((sautes + 1))
    echo "SAUTÉ   $nom : $(tail -n 1 "$journal")"
  else
    echecs=$((echecs + 1))
    tail -n 200 "$journal"
    echo "ÉCHEC   $nom"
    return 1
  fi
}

# commencer COMMANDE... : a check that leaves a core idle goes on beside the next ones; `rejoindre` waits for it.
commencer() {
  "$@" >"$journal_a_cote" 2>&1 &
  a_cote=$!
}
rejoindre() {
  local etat=0
  wait "$a_cote" || etat=$?
  a_cote=
  cat "$journal_a_cote"
  return $etat
}

# Directories of the tests in memory, where there is a gigabyte for them: they wait for the disk at each file that must
# not be lost.
essais_en_memoire() {
  if [ -w /dev/shm ] && ! grep -q ' /dev/shm .*noexec' /proc/mounts &&
    [ "$(df -k --output=avail /dev/shm | tail -n 1)" -gt 1000000 ]; then export TMPDIR=${TMPDIR:-/dev/shm}; fi
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

# chaine PRESET : the commands of the README on the example survey and text, as run.sh shows them, with the companion of
# that build; its pictures are those that they draw.
chaine() (
  copie=$(mktemp -d) && trap 'rm -rf "$copie"' EXIT
  racine=$PWD
  cp -r examples/loisirs/. "$copie" && PATH="$racine/build/$1/bin:$PATH" && cd "$copie" && sh -e chaine.sh &&
    cmp plan.svg "$racine/docs/images/plan.svg" && cmp effets.svg "$racine/docs/images/effets.svg" &&
    cp -r "$racine/examples/paquets" "$copie/paquets" && cd "$copie/paquets" && sh -e chaine.sh &&
    cmp mots.svg "$racine/docs/images/mots.svg"
)

# The seconds that are left until then, 15 at least: a step that has not begun looks at what changed first.
reste() { echo $((SECONDS + 15 > ATTENTE ? 15 : ATTENTE - SECONDS)); }

# The folders below the forms that have changed.
dossiers_changes() {
  tools/changements.sh | sed -n 's#^\(src\|tests\)/\([a-z]*\)/.*#\2#p' | sort -u | grep -vxE 'forms|golden|support'
}

# The sanitizers over the tests of these folders, where their build is nearly up to date.
detecteurs() {
  local dossier etat=0
  timeout "$(reste)" cmake --build --preset asan --target "${@/#/test_}" || etat=$?
  if [ $etat = 124 ]; then echo "trop long à construire, ./test.sh le fera"; return 77; fi
  [ $etat = 0 ] || return 1
  for dossier in "$@"; do "build/asan/bin/test_$dossier" --gtest_brief=1 || return 1; done
}

tout() {
  etape "paquets" installer "${PAQUETS_NOYAU[@]}" "${PAQUETS_EXEMPLE[@]}" "${PAQUETS_FORMES[@]}" \
    "${PAQUETS_ESSAIS[@]}"
  installer "${PAQUETS_FACULTATIFS[@]}" || true
  etape "paquets de clang" installer_runtime_clang
  etape "mise en page des sources" tools/format.sh --verifier
  etape "sens des flèches" tools/fleches.sh
  suite release -DQUELVAR_BENCH=ON
  etape "chaîne d'exemple" chaine release
  commencer packaging/essai.sh build/release # it waits for the network, and packs on one core
  # What the disk does has been seen by the first suite.
  essais_en_memoire
  suite asan ""
  suite core -DCMAKE_DISABLE_FIND_PACKAGE_Qt6=ON
  etape "paquet Debian" rejoindre
  etape "analyse statique" tools/tidy.sh build/release
  # The same at every run; chance is for the campaigns.
  etape "graines des lectures au hasard" fuzz/court.sh 0
}

avant_envoi() {
  essais_en_memoire
  etape "mise en page des sources" tools/format.sh --verifier
  etape "sens des flèches" tools/fleches.sh
  etape "fiches du paquet" packaging/fiches.sh
  etape "lectures au hasard, par clang" fuzz/court.sh --lire
  suite dev ""
  etape "chaîne d'exemple" chaine dev
  etape "analyse statique" tools/tidy.sh --limite "$(reste)" build/dev
  local changes
  mapfile -t changes < <(dossiers_changes)
  if [ -e build/asan/build.ninja ] && [ ${#changes[@]} -gt 0 ]; then
    etape "détecteurs, ${changes[*]}" detecteurs "${changes[@]}"
  fi
}

case "${1:-}" in
  --rapide) suite dev "" ;;
  --avant-envoi) avant_envoi ;;
  "") tout ;;
  *) sed -n '2,11p' "$0"; exit 2 ;;
esac
echo
echo "$reussis passed, $echecs failed$([ $sautes = 0 ] || echo ", $sautes skipped")"
[ "$echecs" = 0 ]
