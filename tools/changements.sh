#!/usr/bin/env bash
# The files that have changed since the branch left the common one, or that are not recorded yet, one a line.
set -euo pipefail
cd "$(dirname "$0")/.."
base=$(git merge-base HEAD origin/main 2>/dev/null || git merge-base HEAD main)
{ git diff --name-only "$base"; git ls-files --others --exclude-standard; } | sort -u
