#!/usr/bin/env bash
# What the package says of itself: one version everywhere, and cards that the catalogues accept.
# Ends with 77 where a validator is missing.
set -euo pipefail
cd "$(dirname "$0")/.."
version=$(sed -n 's/.*kVersion = "\([0-9.]*\)".*/\1/p' src/core/programme/version.h)
histoire=$(sed -n '1s/^quelvar (\([^)]*\)).*/\1/p' packaging/debian/changelog)
fiche=$(sed -n 's/.*<release version="\([^"]*\)".*/\1/p' packaging/quelvar.metainfo.xml | head -n 1)
[ "$version" = "$histoire" ] && [ "$version" = "$fiche" ] ||
  { echo "version : $version, debian/changelog : $histoire, metainfo : $fiche" >&2; exit 1; }
for outil in appstreamcli desktop-file-validate; do
  command -v $outil >/dev/null || { echo "$outil manque" >&2; exit 77; }
done
appstreamcli validate --no-net packaging/quelvar.metainfo.xml
desktop-file-validate packaging/quelvar.desktop
