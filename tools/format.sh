#!/usr/bin/env bash
# Lays out every C++ source after .clang-format; with --verifier changes nothing and fails when one would change.
# The version is fixed, because each version of the tool lays out a little differently.
set -euo pipefail
cd "$(dirname "$0")/.."
mode=(-i)
[ "${1:-}" != --verifier ] || mode=(--dry-run --Werror)
git ls-files -z '*.cpp' '*.h' | xargs -0 -r clang-format-14 "${mode[@]}"
