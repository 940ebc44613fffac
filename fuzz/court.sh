#!/usr/bin/env bash
# Builds fuzz targets and runs each for some seconds from its seeds; an input that breaks one is left beside the build.
#   fuzz/court.sh [SECONDES [CIBLE...]]    default: 10 seconds, every target; 0 seconds: the seeds only
set -euo pipefail
cd "$(dirname "$0")/.."
secondes=${1:-10}
shift || true
cibles=("$@")
if [ ${#cibles[@]} = 0 ]; then for source in fuzz/*.cpp; do cibles+=("$(basename "$source" .cpp)"); done; fi
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
