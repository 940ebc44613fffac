#include "core/document/parties.h"

#include <algorithm>

namespace quelvar {

namespace {

// Where a part begins: behind the first line feed from the byte before its nominal place on; at that place when no line
// ends within a part.
std::uintmax_t DebutDePartie(const Chemin& chemin, std::size_t rang, std::uintmax_t taille) {
  if (rang == 0) return 0;
  constexpr std::size_t kPas = 4096;  // bytes, more than most lines have
  const std::uintmax_t nominal = rang * taille;
  for (std::uintmax_t lu = nominal - 1; lu < nominal + taille - 1;) {
    const std::string morceau =
        LireMorceau(chemin, lu, static_cast<std::size_t>(std::min<std::uintmax_t>(kPas, nominal + taille - 1 - lu)));
    if (morceau.empty()) break;
    if (const std::size_t saut = morceau.find('\n'); saut != std::string::npos) return lu + saut + 1;
    lu += morceau.size();
  }
  return nominal;
}

}  // namespace

std::size_t NombreDeParties(std::uintmax_t longueurFichier, std::uintmax_t taille) {
  return static_cast<std::size_t>(std::max<std::uintmax_t>(1, (longueurFichier + taille - 1) / taille));
}

std::string LirePartie(const Chemin& chemin, std::size_t rang, std::uintmax_t taille) {
  const std::uintmax_t debut = DebutDePartie(chemin, rang, taille);
  return LireMorceau(chemin, debut, static_cast<std::size_t>(DebutDePartie(chemin, rang + 1, taille) - debut));
}

}  // namespace quelvar
