#!/usr/bin/env bash
# Builds fuzz targets and runs each for some seconds from its seeds; an input that breaks one is left beside the build.
#   fuzz/court.sh [SECONDES [CIBLE...]]    default: 10 seconds, every target; 0 seconds: the seeds only
#   fuzz/court.sh --lire                   only has clang read the targets that changed, or whose headers did
set -euo pipefail
cd "$(dirname "$0")/.."

# A target that clang has read without a word is not read again until something that it reads has changed.
lire() {
  local cache=${XDG_CACHE_HOME:-$HOME/.cache}/quelvar-lecture outil source cle lus=0
  local drapeaux=(-std=c++20 -Wall -Wextra -Werror -Isrc -I. -Itests)
  mkdir -p "$cache"
  outil=$(clang++ --version; echo "${drapeaux[@]}")
  for source in fuzz/*/*.cpp; do
    cle=$({ echo "$outil $source"; clang++ "${drapeaux[@]}" -MM "$source" | tr -d '\\' | tr ' ' '\n' | sed '1d; /^$/d' | xargs sha256sum; } |
      sha256sum | cut -d' ' -f1)
    [ ! -e "$cache/$cle" ] || continue
    clang++ "${drapeaux[@]}" -fsyntax-only "$source"
    touch "$cache/$cle"
    lus=$((lus + 1))
  done
  find "$cache" -type f -mtime +60 -delete
  echo "$lus cibles lues"
}

if [ "${1:-}" = --lire ]; then lire; exit; fi
secondes=${1:-10}
shift || true
cibles=("$@")
if [ ${#cibles[@]} = 0 ]; then for source in fuzz/*/*.cpp; do cibles+=("$(basename "$source" .cpp)"); done; fi
duree=(-max_total_time="$secondes")
[ "$secondes" != 0 ] || duree=(-runs=0)
cmake --preset fuzz
cmake --build --preset fuzz --target "${cibles[@]/#/fuzz_}"
trouvailles=$(mktemp -d)
trap 'rm -rf "$trouvailles"' EXIT
for cible in "${cibles[@]}"; do
  echo "== $cible"
  "build/fuzz/bin/fuzz_$cible" "${duree[@]}" -timeout=10 -rss_limit_mb=1024 -artifact_prefix=build/fuzz/ \
    -print_final_stats=1 "$trouvailles" "fuzz/corpus/$cible"
  rm -rf "${trouvailles:?}"/*
done
