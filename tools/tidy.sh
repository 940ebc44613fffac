#!/usr/bin/env bash
# Static analysis of src/ after .clang-tidy.
#   tools/tidy.sh [DOSSIER [FICHIER...]]    a build directory (default build/dev) that is up to date; all of src/
# A file that was found clean is not looked at again until something that it reads has changed: its verdict is kept
# under the hash of its own bytes, of every header of ours that it includes, the generated ones too, of what its
# command defines and where it looks for headers, of .clang-tidy and of the version of the tool.
set -euo pipefail
cd "$(dirname "$0")/.."
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
  done >"$travail/a_voir"

# The warnings of the compiler are g++'s matter: here only the checks count.
examiner() {
  clang-tidy-14 --quiet -p "$1" --extra-arg=-w "$3" 2> >(grep -v "warnings* generated" >&2) && touch "$2/$4"
}
export -f examiner
xargs -r -n 2 -P "$(nproc)" bash -c 'examiner "$0" "$1" "$2" "$3"' "$dossier" "$cache" <"$travail/a_voir"
find "$cache" -type f -mtime +60 -delete
echo "$(wc -l <"$travail/a_voir") fichiers analysés sur $(wc -l <"$travail/voulus")"
