#!/usr/bin/env bash
# Static analysis of src/ after .clang-tidy; the argument is a build directory (default build/dev).
set -euo pipefail
cd "$(dirname "$0")/.."
dossier=${1:-build/dev}
# The database is the compiler's own: options that only g++ knows are no concern here.
git ls-files -z 'src/*.cpp' |
  xargs -0 -r -n 4 -P "$(nproc)" clang-tidy-14 --quiet -p "$dossier" --extra-arg=-Wno-unknown-warning-option
