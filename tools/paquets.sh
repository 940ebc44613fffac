# Sourced by run.sh and test.sh: the Debian and Ubuntu packages that the project needs, and their installation.
# "a|b" is one package under the names of two distributions: the first that exists is taken.

PAQUETS_NOYAU=(g++ cmake ninja-build ccache libzip-dev libexpat1-dev)
PAQUETS_EXEMPLE=(librsvg2-bin fonts-liberation) # the picture of the example as PNG
PAQUETS_FORMES=(qt6-base-dev "qt6-svg-dev|libqt6svg6-dev" qt6-translations-l10n fonts-liberation)
PAQUETS_ESSAIS=(libgtest-dev libbenchmark-dev xvfb clang clang-format-14 clang-tidy-14 git)
# A test that needs them is skipped without them.
PAQUETS_FACULTATIFS=(xdotool dpkg-dev file lintian appstream desktop-file-utils mmdebstrap)

est_installe() { [ "$(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null)" = installed ]; }

en_root() { if [ "$(id -u)" = 0 ]; then "$@"; else sudo "$@"; fi; }

# Prints the names of "a|b" packages of which no variant is installed.
manquants() {
  local paquet variante
  for paquet in "$@"; do
    for variante in ${paquet//|/ }; do est_installe "$variante" && continue 2; done
    echo "$paquet"
  done
}

# Turns "a|b" into the name that this distribution has.
nom_disponible() {
  local variante
  for variante in ${1//|/ }; do
    if apt-cache policy "$variante" | grep -q 'Candidate: [^(]'; then echo "$variante"; return; fi
  done
  echo "${1%%|*}"
}

installer() {
  if ! command -v apt-get >/dev/null; then
    echo "apt-get est absent : installez vous-même l'équivalent de : $*" >&2
    return 0
  fi
  local liste paquet noms=()
  liste=$(manquants "$@")
  [ -n "$liste" ] || return 0
  en_root apt-get update -qq
  for paquet in $liste; do noms+=("$(nom_disponible "$paquet")"); done
  echo "Installation de : ${noms[*]}"
  en_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${noms[@]}" >/dev/null
}

# The sanitizer and fuzzer runtime goes with the version of clang, which is known once clang is there.
installer_runtime_clang() {
  local version
  version=$(clang --version | sed -n 's/.*clang version \([0-9]*\).*/\1/p')
  installer "libclang-rt-$version-dev"
}
