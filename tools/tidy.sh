#!/usr/bin/env bash
# Static analysis of src/ after .clang-tidy.
#   tools/tidy.sh [--limite SECONDES] [DOSSIER [FICHIER...]]
# DOSSIER is a build directory that is up to date (default build/dev); without FICHIER all of src/ is looked at. Under a
# limit the files that changed come first, then those whose header did, then the shortest; no file is begun after it,
# and how many are left is told.
# A file that was found clean is not looked at again until something that it reads has changed: its verdict is kept
# under the hash of its own bytes, of every header of ours that it includes, the generated ones too, of what its
# command defines and where it looks for headers, of .clang-tidy and of the version of the tool.
set -euo pipefail
cd "$(dirname "$0")/.."
export FIN=
if [ "${1:-}" = --limite ]; then FIN=$((EPOCHSECONDS + $2)); shift 2; fi
dossier=${1:-build/dev}
shift || true
cache=${XDG_CACHE_HOME:-$HOME/.cache}/quelvar-tidy
mkdir -p "$cache"
travail=$(mktemp -d)
trap 'rm -rf "$travail"' EXIT

git ls-files 'src/*.cpp' >"$travail/tous"
if [ $# -gt 0 ]; then printf '%s\n' "$@" | sort | comm -12 - <(sort "$travail/tous") >"$travail/voulus"
else cp "$travail/tous" "$travail/voulus"; fi

# Every header of ours that each source reads, as the last build saw it: "source header", paths from the root.
(cd "$dossier" && ninja -t deps) |
  sed -n 's|^\([^ ].*\): #deps.*|= \1|p; s|^    \.\./\.\./\(src/.*\)|\1|p; s|^    \([a-z].*\)|'"$dossier"'/\1|p' |
  awk '/^= / { source = ""; next } source == "" { source = $0 } { print source, $0 }' |
  sort -u >"$travail/lectures"
cut -d' ' -f2 "$travail/lectures" | sort -u |
  while read -r lu; do [ ! -f "$lu" ] || echo "$lu"; done | xargs -r sha256sum >"$travail/empreintes"
# What the command of each source says to its preprocessor, wherever the tree is and whatever the build optimises:
# "source words".
awk -v racine="$PWD/" '
  /"command":/ { mots = ""; n = split($0, mot, " ")
    for (i = 1; i <= n; i++) {
      if (mot[i] ~ /^-(D|I|std=)/ && mot[i] !~ /ASSERTIONS|NDEBUG|QT_NO_DEBUG|SOURCEDIR|BUILDDIR/) mots = mots mot[i] }
    gsub(racine, "", mots); gsub(/build\/[a-z]+\//, "build/", mots) }
  /"file":/ { split($0, nom, "\""); sub(racine, "", nom[4]); print nom[4], mots }' \
  "$dossier/compile_commands.json" >"$travail/commandes"
reglage=$({ clang-tidy-14 --version; cat .clang-tidy; } | sha256sum | cut -d' ' -f1)
awk -v reglage="$reglage" '
  FILENAME ~ /empreintes$/ { empreinte[$2] = $1; next }
  FILENAME ~ /lectures$/ { cles[$1] = cles[$1] empreinte[$2]; next }
  FILENAME ~ /commandes$/ { cles[$1] = cles[$1] $2; next }
  { print $1, reglage, cles[$1] }' "$travail"/{empreintes,lectures,commandes,voulus} |
  while read -r source reste; do
    cle=$({ echo "$source $reste"; cat "$source"; } | sha256sum | cut -d' ' -f1)
    [ -e "$cache/$cle" ] || echo "$source $cle"
  done >"$travail/trouves"

# In the order in which a limit wants them: sources that changed, those whose header did, the others by their size.
touch "$travail/changes"
[ -z "$FIN" ] || tools/changements.sh >"$travail/changes"
while read -r source cle; do
  rang=2
  if grep -qxF "$source" "$travail/changes"; then rang=0
  elif grep -qxF "${source%.cpp}.h" "$travail/changes"; then rang=1; fi
  echo "$rang $(wc -c <"$source") $source $cle"
done <"$travail/trouves" | sort -n -k 1,1 -k 2,2 | cut -d' ' -f 3,4 >"$travail/a_voir"

# The warnings of the compiler are g++'s matter: here only the checks count.
examiner() {
  if [ -n "$FIN" ] && [ "$EPOCHSECONDS" -ge "$FIN" ]; then echo "$3" >>"$RESTES"; return; fi
  clang-tidy-14 --quiet -p "$1" --extra-arg=-w "$3" 2> >(grep -v "warnings* generated" >&2) && touch "$2/$4"
}
export -f examiner
export RESTES=$travail/restes
touch "$RESTES"
xargs -r -n 2 -P "$(nproc)" bash -c 'examiner "$0" "$1" "$2" "$3"' "$dossier" "$cache" <"$travail/a_voir"
find "$cache" -type f -mtime +60 -delete
restes=$(wc -l <"$RESTES")
echo "$(($(wc -l <"$travail/a_voir") - restes)) fichiers analysés sur $(wc -l <"$travail/voulus")"
[ "$restes" = 0 ] || echo "à savoir : $restes fichiers restent à analyser, faute de temps"
