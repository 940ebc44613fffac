#!/usr/bin/env bash
# Refuses what would put the house out of order: an include against the arrows (forms and batch -> program folders ->
# core, and between program folders only those that the method demands, listed here), folders that include each other in
# a circle, a folder with more than 24 source files directly in it, a name of the documents that stands for nothing, and
# the few idioms told below.
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
# The sources below some folders, those that are not recorded yet too.
sources() {
  local source
  git ls-files --cached --others --exclude-standard -- "${@/%//*.cpp}" "${@/%//*.h}" "${@/%//*.ui}" | grep -v '^tests/golden/.*/' |
    while read -r source; do [ ! -e "$source" ] || echo "$source"; done
}
refuser() { echo "$1" >&2; fautes=$((fautes + 1)); }

while IFS=: read -r fichier _ ligne; do
  depuis=${fichier#src/} && depuis=${depuis%%/*}
  vers=${ligne#*\"} && vers=${vers%%/*}
  [ "$vers" = "$depuis" ] && continue
  [[ -d src/$vers ]] || continue # what the build makes (ui_*.h) lies in no folder
  [[ " ${PERMIS[$depuis]-} " == *" $vers "* ]] || refuser "$fichier : $vers n'est pas sous $depuis (${ligne#*:})"
done < <(git grep --untracked -n '^#include "[a-z]*/' -- src)

# A room is a folder that holds sources itself, and stands below those that include its headers: no room is below itself.
# "room room file header" for each include that leaves its room.
inclusions() {
  git grep --untracked '^#include "[a-z]*/' -- src | awk -F '[:"]' '
    { depuis = $1; sub(/\/[^\/]*$/, "", depuis); vers = "src/" $3; sub(/\/[^\/]*$/, "", vers) }
    depuis != vers { print depuis, vers, $1, $3 }'
}
# The rooms of each circle on a line.
cercles() {
  inclusions | cut -d' ' -f 1,2 | sort -u | LC_ALL=C tsort 2>&1 >/dev/null |
    awk '/contains a loop/ { if (cercle) print cercle; cercle = ""; next } { cercle = cercle " " $2 } END { print cercle }'
}
while read -r cercle; do
  [ -n "$cercle" ] || continue
  refuser "dossiers en cercle : $cercle"
  inclusions | awk -v cercle="$cercle" '
    BEGIN { n = split(cercle, noms, " "); for (i = 1; i <= n; i++) dedans[noms[i]] = 1 }
    $1 in dedans && $2 in dedans { print "    " $3 " -> " $4 }' >&2
done < <(cercles)

# The floors of the core and of the forms, from the top: a room (a folder told here, with those below it that are not)
# includes those of the floors below its own.
declare -A ETAGES=(
  [core]="options session / document dessin enquete resultats / programme / fichiers / calcul chiffres / panne / texte"
  [forms]="cadre publication / cadre/menus / programmes / editeur images pieces / texte / services / aide qt"
)
for dossier in "${!ETAGES[@]}"; do
  while read -r depuis vers fichier entete; do
    refuser "$fichier : $vers n'est pas sous $depuis ($entete)"
  done < <(git grep --untracked "^#include \"$dossier/" -- "src/$dossier" | awk -F '[:"]' -v base="$dossier" -v etages="${ETAGES[$dossier]}" '
    function piece(chemin) {
      do sub(/\/?[^\/]*$/, "", chemin); while (chemin != "" && !(chemin in etage))
      return chemin
    }
    BEGIN { n = split(etages, mots, " "); for (i = 1; i <= n; i++) if (mots[i] == "/") ++rang; else etage[mots[i]] = rang + 0 }
    {
      depuis = piece(substr($1, length("src/" base "/") + 1)); vers = piece(substr($3, length(base "/") + 1))
      if (depuis != vers && (depuis == "" || vers == "" || etage[vers] <= etage[depuis])) print depuis "|" vers "|" $1 "|" $3
    }' | sed 's/^|/-|/; s/||/|-|/' | tr '|' ' ')
done

# A file of the generic may vanish while a form is open: Exiger raises what a dereferenced search would not.
if git grep --untracked -nE -e '\*[A-Za-z_.]*[cC]ontexte_?(\(\))?\.Chercher\(|\*ChercherFichier\(' \
  -e '[cC]ontexte_?(\(\))?\.Chercher\([^()]*\)(->|\.value\(\))' -- src tests fuzz; then
  refuser "fichier cherché et pris sans savoir s'il est là (Exiger)"
fi

# How a file changes is known to core/fichiers alone, and what a program says goes through its report and its Dialogue.
change='std::(ofstream|fstream)|\bfopen\(|filesystem::(rename|remove|remove_all|copy_file|resize_file)\('
change+='|(^|[ (!=])(::)?(unlink|rename|renameat2|truncate|ftruncate)\('
if git grep --untracked -nE "$change" -- src ':!src/core/fichiers'; then refuser "fichier changé hors de core/fichiers"; fi
if git grep --untracked -nE 'std::(cout|cerr|clog|printf|fprintf|puts|fputs|fwrite)\b' -- src ':!src/batch' ':!src/forms/publication'; then
  refuser "sortie écrite sans Rapport ni Dialogue"
fi

# No threads in what computes and prints: a report has the same bytes on every machine.
if git grep --untracked -nE '#include <(thread|future|execution|atomic)>' -- src ':!src/core/fichiers' ':!src/forms'; then
  refuser "fils d'exécution sous les formulaires"
fi

# A namespace for each folder under the core.
for dossier in sorts capture crosstab tables modalities factor regression text utilities batch forms; do
  while read -r fichier; do
    refuser "$fichier : l'espace de noms de $dossier"
  done < <(git grep --untracked -LE "namespace quelvar::$dossier" -- "src/$dossier/*.h" "src/$dossier/*.cpp" | grep -v 'main\.cpp$' || true)
done

if git grep --untracked -nE '#include <(Q|qt)[A-Za-z]' -- src ':!src/forms'; then refuser "Qt sous les formulaires"; fi

while read -r nombre dossier; do
  [ "$nombre" -le 24 ] || refuser "$dossier : $nombre fichiers sources (24 au plus)"
done < <(sources src tests fuzz bench | sed 's|/[^/]*$||' | sort | uniq -c)

# A file has the name of its subject: no part before it that the folder says, and behind it only what stands beside a
# program. The tests stand in the folders that they try.
while read -r fichier; do refuser "$fichier : nom en deux parties"; done < <(sources src | grep -E '/[^/]*_[^/]*$' | grep -vE '_(options|main)\.(cpp|h)$')
while read -r dossier; do
  [ -d "src/${dossier#tests/}" ] || refuser "$dossier : essais d'un dossier qui n'est pas dans src"
done < <(sources tests | grep '_test\.cpp$' | grep -v '^tests/golden/' | sed 's|/[^/]*$||' | sort -u)

# Bounds of what a program takes stand beside it, and the form asks for them (forms/pieces/defauts).
if git grep --untracked -nE 'name="(minimum|maximum|maxLength|singleStep)"' -- 'src/forms/*.ui'; then refuser "borne écrite dans un formulaire"; fi
if git grep --untracked -nE 'name="(checked|value)"' -- 'src/forms/programmes/*.ui'; then refuser "défaut écrit dans un formulaire"; fi

# A failure has a name (core/panne/erreur.h), where it is raised and where a contract tells it.
if git grep --untracked -nE '\bErreur\([0-9]' -- src; then refuser "erreur sans nom"; fi
# What only a fault of ours can throw says so: a logic_error.
if git grep --untracked -nE '\bthrow std::' -- src | grep -vE 'std::(logic_error|bad_alloc)\('; then refuser "échec sans Erreur"; fi
if git grep --untracked -niE '^ *//.*\b(raises|throws|error|erreur) +[0-9]' -- 'src/*.h'; then refuser "contrat qui dit un numéro"; fi

# Files of a length that one reads in a sitting: about 400 lines.
while read -r lignes fichier; do
  [ "$lignes" -le 490 ] || [ "$fichier" = total ] || refuser "$fichier : $lignes lignes (490 au plus)"
done < <(sources src | grep -v '\.ui$' | xargs wc -l)

# What the documents name is there: files and folders by their path, from the root or from a folder of src, and the types
# of the glossary in the file beside them.
nomme() {
  local racine
  for racine in "" src/ src/{core,sorts,capture,capture/apercu,crosstab,regression,text,utilities,forms}/ tests/ tests/forms/; do
    compgen -G "$racine$1" >/dev/null || compgen -G "$racine$1.h" >/dev/null || compgen -G "$racine$1.cpp" >/dev/null || continue
    return 0
  done
  return 1
}
for document in README.md docs/architecture.md docs/glossaire.md docs/fiabilite.md; do
  while read -r chemin; do
    nomme "${chemin%/}" || refuser "$document : $chemin n'existe pas"
  done < <({ grep -oE '`[^` ]*/[^` ]*`' "$document" | tr -d '`'; grep -oE '\]\([^)#]*\)' "$document" | tr -d '])('; } |
    grep -vE '^(build|bin|Documents)/|^une/copie|[<*]' | sed 's|^\./||' | sort -u)
done
while IFS='|' read -r _ mot _ types fichiers _; do
  mapfile -t chemins < <(grep -oE '`[a-z]+/[a-z0-9/_]*\.h`' <<<"$fichiers" | tr -d '`' | sed 's|^|src/|')
  [ ${#chemins[@]} -gt 0 ] || continue
  for type in $(grep -oE '`[A-Z][A-Za-z0-9]*' <<<"$types" | tr -d '`'); do
    grep -qw "$type" "${chemins[@]}" 2>/dev/null || refuser "docs/glossaire.md,$mot: $type n'est pas dans ${chemins[*]}"
  done
done < <(grep '^| ' docs/glossaire.md)

[ "$fautes" = 0 ]
