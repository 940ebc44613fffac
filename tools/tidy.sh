#!/usr/bin/env bash
# Static analysis of src/ after .clang-tidy; the argument is a build directory (default build/dev).
set -euo pipefail
cd "$(dirname "$0")/.."
dossier=${1:-build/dev}
# The warnings of the compiler are g++'s matter: here only the checks count.
git ls-files -z 'src/*.cpp' |
  xargs -0 -r -n 4 -P "$(nproc)" clang-tidy-14 --quiet -p "$dossier" --extra-arg=-w 2> >(grep -v "warnings* generated" >&2)
