#!/usr/bin/env bash
# Builds Quelvar and shows it at work. With a screen: the program, on a copy of the survey of examples/loisirs
# in the user's documents. Without one: the chain of examples/loisirs/chaine.sh in a scratch copy, on the terminal.
set -euo pipefail
racine=$(cd "$(dirname "$0")" && pwd)
cd "$racine"
. tools/paquets.sh
CMAKE_BUILD_PARALLEL_LEVEL=${CMAKE_BUILD_PARALLEL_LEVEL:-$(nproc)}
export CMAKE_BUILD_PARALLEL_LEVEL

# construire PRESET CIBLE... : quiet unless it fails
construire() {
  local preset=$1 journal
  shift
  journal=$(mktemp)
  echo "Construction de Quelvar (quelques minutes la première fois)..." >&2
  if ! { cmake --preset "$preset" -DQUELVAR_TESTS=OFF -DQUELVAR_BENCH=OFF &&
         cmake --build --preset "$preset" --target "$@"; } >"$journal" 2>&1; then
    cat "$journal" >&2
    exit 1
  fi
  rm -f "$journal"
}

sans_ecran() {
  installer "${PAQUETS_NOYAU[@]}" "${PAQUETS_EXEMPLE[@]}"
  construire core quelvar-batch
  copie=$(mktemp -d) # not local: the trap needs it when this function is over
  trap 'rm -rf "$copie"' EXIT
  cp -r examples/loisirs examples/paquets "$copie"
  PATH="$racine/build/core/bin:$PATH"
  (cd "$copie/loisirs" && sh -e chaine.sh && cp plan.* effets.svg "$racine/build/")
  (cd "$copie/paquets" && sh -e chaine.sh && cp mots.* "$racine/build/")
  echo "Dans $racine/build : le plan des facteurs (plan.svg, plan.png), les effets de la régression (effets.svg), le plan des mots (mots.svg, mots.png)" >&2
}

# The copy is made once: what the user does there afterwards is never overwritten. The survey is imported in it, and
# the program's pointer to the last survey leads there, unless it leads somewhere already.
preparer_documents() {
  local documents bin="$racine/build/release/bin"
  documents=$(xdg-user-dir DOCUMENTS 2>/dev/null || echo "$HOME/Documents")
  [ "$documents" != "$HOME" ] || documents="$HOME/Documents"
  copie="$documents/Quelvar/loisirs"
  if [ ! -e "$copie" ]; then
    mkdir -p "$copie"
    cp -r examples/loisirs/. "$copie"
    "$bin/quelvar-batch" -C "$copie" import-csv LOISIRS >/dev/null || true
    printf 'LOISIRS\r\n 1 \r\n' >"$copie/qvr2.ini"
  fi
  if [ ! -e "$bin/Qvr2.in0" ]; then
    printf '%s/qvr2.ini\r\n' "$copie" | iconv -f UTF-8 -t WINDOWS-1252 >"$bin/Qvr2.in0"
  fi
}

avec_ecran() {
  installer "${PAQUETS_NOYAU[@]}" "${PAQUETS_FORMES[@]}"
  construire release quelvar quelvar-batch
  preparer_documents
  cd "$copie"
  "$racine/build/release/bin/quelvar"
}

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ] && [ -d src/forms ]; then avec_ecran; else sans_ecran; fi
