#!/usr/bin/env bash
# The Debian package as its users meet it: packed twice with the same bytes, without the date of the day and with the
# notes of the help as a second printing gives them (the compiler, too long to run twice here, is not tried: no source
# asks it for a date or a path); without an error of lintian, valid for the catalogues; installed in a clean root, its
# programs started there, and removed without a file left.
#   packaging/essai.sh [DOSSIER]    a release build that is up to date (default build/release)
# Ends with 77 where a tool or the rights for it are missing.
set -euo pipefail
racine=$(cd "$(dirname "$0")/.." && pwd)
cd "$racine"
construction=${1:-build/release}
for outil in cpack lintian; do
  command -v $outil >/dev/null || { echo "$outil manque" >&2; exit 77; }
done
packaging/fiches.sh "$construction/packaging/quelvar.metainfo.xml"
# The manual page tells every option that the companion tells.
for option in $("$construction/bin/quelvar-batch" --help | grep -oE -- ' --[a-z]+' | sort -u); do
  sed 's/\\-/-/g' packaging/man/quelvar-batch.1 | grep -- "$option" >/dev/null || { echo "quelvar-batch.1 ne dit pas $option" >&2; exit 1; }
done
travail=$(mktemp -d)
trap 'rm -rf "$travail"' EXIT
unset SOURCE_DATE_EPOCH # packed as cpack alone does it
for fois in 1 2; do
  cpack --config "$construction/CPackConfig.cmake" -B "$travail/$fois" >"$travail/journal" || { cat "$travail/journal"; exit 1; }
done
paquet=$(echo "$travail"/1/*.deb)
cmp "$paquet" "$travail"/2/*.deb
histoire=$(TZ=UTC date -d "$(dpkg-parsechangelog -l packaging/debian/changelog -S Date)" '+%F %R')
autres=$(TZ=UTC dpkg-deb -c "$paquet" | awk -v d="$histoire" '$4 " " $5 != d')
[ -z "$autres" ] || { echo "d'une autre date que $histoire : $autres" >&2; exit 1; }
[ "$(TZ=UTC ar tv "$paquet" | awk '{ print $4, $5, $7, $6 }' | sort -u)" = "$(LC_ALL=C TZ=UTC date -d "$histoire UTC" '+%b %-d %Y %R')" ]
for note in docs/aide/notes/*.html; do
  nom=$(basename "$note" .html).pdf
  XDG_RUNTIME_DIR="$travail" QT_QPA_PLATFORM=offscreen "$construction/bin/quelvar-aide" note "$note" "$travail/$nom"
  cmp "$travail/$nom" "$construction/bin/aide/$nom"
done
lintian --fail-on error "$paquet"
dpkg-deb -f "$paquet" Depends | grep libqt6svg6 >/dev/null || { echo "libqt6svg6 n'est pas dans Depends" >&2; exit 1; }

if [ "$(id -u)" != 0 ] || ! command -v mmdebstrap >/dev/null; then
  echo "bien construit, mais pas installé dans une racine neuve, sans mmdebstrap ou sans droits" >&2
  exit 77
fi
. /etc/os-release
racine_neuve=$travail/racine
presentes=()
sources=(/etc/apt/sources.list /etc/apt/sources.list.d/*.list /etc/apt/sources.list.d/*.sources)
for s in "${sources[@]}"; do [ ! -s "$s" ] || presentes+=("$s"); done
mmdebstrap --quiet --variant=apt --include=ca-certificates "$VERSION_CODENAME" "$racine_neuve" "${presentes[@]}"
for reglage in /etc/apt/apt.conf.d/* /etc/apt/apt.conf; do [ ! -f "$reglage" ] || cp "$reglage" "$racine_neuve/etc/apt/apt.conf.d/"; done
cp "$paquet" "$racine_neuve/quelvar.deb"
dedans() { chroot "$racine_neuve" env DEBIAN_FRONTEND=noninteractive LC_ALL=C.UTF-8 HOME=/root "$@"; }
cp /etc/resolv.conf "$racine_neuve/etc/resolv.conf" 2>/dev/null || true
{ dedans apt-get update -qq && dedans apt-get install -y -qq --no-install-recommends /quelvar.deb; } \
  >"$travail/journal" 2>&1 || { cat "$travail/journal"; exit 1; }
dedans quelvar-batch --liste | grep '^triapl' >/dev/null
dedans cp -r /usr/share/quelvar/examples/loisirs /tmp/loisirs
dedans quelvar-batch -C /tmp/loisirs import-csv LOISIRS >/dev/null
dedans quelvar-batch -C /tmp/loisirs triapl LOISIRS | grep 'Fin normale du programme' >/dev/null
# The window lives until it is stopped.
etat=0
dedans env QT_QPA_PLATFORM=offscreen timeout 5 quelvar >/dev/null 2>&1 || etat=$?
[ "$etat" = 124 ] || { echo "quelvar s'est arrêté : $etat" >&2; exit 1; }
dpkg-deb -c "$paquet" | awk '$1 !~ /^d/ { print substr($6, 2) }' >"$travail/fichiers"
dedans apt-get purge -y -qq quelvar >/dev/null 2>&1
while read -r fichier; do
  [ ! -e "$racine_neuve$fichier" ] || { echo "$fichier reste" >&2; exit 1; }
done <"$travail/fichiers"
echo "paquet construit, installé, essayé et retiré : $(basename "$paquet")"
