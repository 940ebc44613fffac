#!/usr/bin/env bash
# Refuses an include against the arrows: forms and batch -> program folders -> core, and between program folders only
# those that the method demands, listed here. Refuses also a folder with more than 24 source files directly in it.
set -euo pipefail
cd "$(dirname "$0")/.."

# folder: the folders that its files may include, besides itself
declare -A PERMIS=(
  [core]=""
  [sorts]="core"
  [capture]="core sorts"
  [crosstab]="core sorts"
  [utilities]="core capture"
  [tables]="core crosstab"
  [modalities]="core crosstab"
  [factor]="core crosstab tables"
  [regression]="core crosstab tables"
  [text]="core factor utilities"
  [batch]="core sorts capture crosstab tables modalities factor regression text utilities"
  [forms]="core sorts capture crosstab tables modalities factor regression text utilities"
)
fautes=0
refuser() { echo "$1" >&2; fautes=$((fautes + 1)); }

while IFS=: read -r fichier _ ligne; do
  depuis=${fichier#src/} && depuis=${depuis%%/*}
  vers=${ligne#*\"} && vers=${vers%%/*}
  [ "$vers" = "$depuis" ] && continue
  [[ -d src/$vers ]] || continue # what the build makes (ui_*.h) lies in no folder
  [[ " ${PERMIS[$depuis]-} " == *" $vers "* ]] || refuser "$fichier : $vers n'est pas sous $depuis (${ligne#*:})"
done < <(git grep -n '^#include "[a-z]*/' -- src)

# A file of the generic may vanish while a form is open: Exiger raises what a dereferenced search would not.
if git grep -nE '\*[A-Za-z_.]*[cC]ontexte_?(\(\))?\.Chercher\(|\*ChercherFichier\(' -- src tests fuzz; then
  refuser "fichier cherché et pris sans savoir s'il est là (Exiger)"
fi

# A namespace for each folder under the core.
for dossier in sorts capture crosstab tables modalities factor regression text utilities batch forms; do
  while read -r fichier; do
    refuser "$fichier : l'espace de noms de $dossier"
  done < <(git grep -LE "namespace quelvar::$dossier" -- "src/$dossier/*.h" "src/$dossier/*.cpp" | grep -v 'main\.cpp$' || true)
done

if git grep -nE '#include <Q[A-Z]' -- src ':!src/forms'; then refuser "Qt sous les formulaires"; fi

while read -r nombre dossier; do
  [ "$nombre" -le 24 ] || refuser "$dossier : $nombre fichiers sources (24 au plus)"
done < <(git ls-files 'src/*.cpp' 'src/*.h' 'src/*.ui' | sed 's|/[^/]*$||' | sort | uniq -c)

# Bounds of what a program takes stand beside it, and the form asks for them (forms/pieces/defauts).
if git grep -nE 'name="(minimum|maximum|maxLength|singleStep)"' -- 'src/forms/*.ui'; then refuser "borne écrite dans un formulaire"; fi

[ "$fautes" = 0 ]
