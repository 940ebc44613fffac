#!/usr/bin/env bash
# What the package says of itself: one version everywhere, and cards that the catalogues accept.
#   packaging/fiches.sh [FICHE]    the metainfo as a build has made it (default: with the site that leads nowhere)
# What leads to a real site is looked for there. Ends with 77 where a validator is missing.
set -euo pipefail
cd "$(dirname "$0")/.."
version=$(sed -n 's/.*kVersion = "\([0-9.]*\)".*/\1/p' src/core/programme/version.h)
histoire=$(sed -n '1s/^quelvar (\([^)]*\)).*/\1/p' packaging/debian/changelog)
fiche=$(sed -n 's/.*<release version="\([^"]*\)".*/\1/p' packaging/quelvar.metainfo.xml.in | head -n 1)
[ "$version" = "$histoire" ] && [ "$version" = "$fiche" ] ||
  { echo "version : $version, debian/changelog : $histoire, metainfo : $fiche" >&2; exit 1; }
for outil in appstreamcli desktop-file-validate; do
  command -v $outil >/dev/null || { echo "$outil manque" >&2; exit 77; }
done
metainfo=$(mktemp --suffix .metainfo.xml)
trap 'rm -f "$metainfo"' EXIT
if [ $# -gt 0 ]; then cp "$1" "$metainfo"
else sed 's|@QUELVAR_SITE@|https://quelvar.example|' packaging/quelvar.metainfo.xml.in >"$metainfo"; fi
reseau=()
if grep -F 'https://quelvar.example/' "$metainfo" >/dev/null; then reseau=(--no-net); fi
appstreamcli validate "${reseau[@]}" "$metainfo"
desktop-file-validate packaging/quelvar.desktop
