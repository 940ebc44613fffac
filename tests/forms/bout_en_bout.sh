#!/usr/bin/env bash
# Starts the program as a user does, on a screen of its own, and drives it by the keyboard alone: the data set of the
# last session opens, the flat sort runs, the program quits and remembers. Usage: bout_en_bout.sh EXECUTABLE
set -euo pipefail
export LC_ALL=C.UTF-8
for outil in Xvfb xdotool; do
  command -v "$outil" >/dev/null || { echo "$outil is missing"; exit 77; }
done

dossier=$(mktemp -d)
ecran= programme=
fin() {
  [ -z "$programme" ] || kill "$programme" 2>/dev/null || true
  [ -z "$ecran" ] || kill "$ecran" 2>/dev/null || true
  rm -rf "$dossier"
}
trap fin EXIT

# attendre SECONDES COMMANDE... : until the command succeeds
attendre() {
  local reste=$(($1 * 10))
  shift
  until "$@" >/dev/null 2>&1; do
    reste=$((reste - 1))
    [ "$reste" -gt 0 ] || { echo "in vain: $*"; return 1; }
    sleep 0.1
  done
}

mkdir "$dossier/programme" "$dossier/Enquête" "$dossier/config"
cp "$1" "$dossier/programme/quelvar"
printf '%s\r\n' "$dossier/Enquête/qvr2.ini" >"$dossier/programme/Qvr2.in0"
cd "$dossier/Enquête"
printf 'ENQ\r\n 1 \r\n' >Qvr2.ini
printf 'ENQ\r\n 3 \r\nSEX   1 2 $Sexe$\r\n' >ENQ.POS
printf '1\r\n2\r\n1\r\n' >ENQ.DAT

Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp 3>"$dossier/affichage" 2>/dev/null &
ecran=$!
attendre 20 test -s "$dossier/affichage" || { echo "Xvfb gives no screen here"; exit 77; }
DISPLAY=:$(cat "$dossier/affichage")
export DISPLAY QT_QPA_PLATFORM=xcb XDG_CONFIG_HOME="$dossier/config" HOME="$dossier"
# What the libraries of the window system keep until the end is no leak of ours.
export ASAN_OPTIONS=detect_leaks=0
"$dossier/programme/quelvar" &
programme=$!
attendre 60 xdotool search --onlyvisible --name 'en cours= ENQ,'
fenetre=$(xdotool search --onlyvisible --name 'en cours= ENQ,' | head -n 1)

# frapper TOUCHES COMMANDE... : strikes the keys, again every two seconds on a slow machine, until the command succeeds
frapper() {
  local touches=$1 essais=15
  shift
  until "$@" >/dev/null 2>&1; do
    essais=$((essais - 1))
    [ "$essais" -gt 0 ] || { echo "in vain after $touches: $*"; return 1; }
    xdotool windowfocus "$fenetre" key --clearmodifiers "$touches" 2>/dev/null || true
    for _ in {1..20}; do
      if "$@" >/dev/null 2>&1; then return; fi
      sleep 0.1
    done
  done
}
parti() { ! kill -0 "$programme"; }

frapper ctrl+t grep -q 'Fin normale du programme' ENQ.TAP
grep -q 'Question SEX Position' ENQ.TAP
frapper ctrl+q parti
wait "$programme"
programme=
LC_ALL=C grep -q 'te/Qvr2.ini' "$dossier/programme/Qvr2.in0"
grep -qi 'RecentFile1=.*QVR2.INI' "$dossier/config/Quelvar/Quelvar.ini"
echo "the window opened, sorted, quit and remembered"
