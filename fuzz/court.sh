#!/usr/bin/env bash
# Builds the fuzz targets and runs each for some seconds from its seeds; an input that breaks one is left beside the
# build. The argument is the number of seconds for each target (default 10).
set -euo pipefail
cd "$(dirname "$0")/.."
secondes=${1:-10}
cmake --preset fuzz
cmake --build --preset fuzz
trouvailles=$(mktemp -d)
trap 'rm -rf "$trouvailles"' EXIT
for cible in build/fuzz/bin/fuzz_*; do
  graines=fuzz/corpus/${cible##*/fuzz_}
  echo "== ${cible##*/}"
  "$cible" -max_total_time="$secondes" -timeout=10 -rss_limit_mb=1024 -artifact_prefix=build/fuzz/ \
    -print_final_stats=1 "$trouvailles" "$graines"
  rm -rf "${trouvailles:?}"/*
done
