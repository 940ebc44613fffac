#include "core/fichiers/sauvegarde.h"

namespace quelvar {

std::string NomDeSauvegardeLibre(const Chemin& repertoire, std::string_view nom) {
  std::string sauvegarde = NomDeSauvegarde(nom);
  while (!sauvegarde.empty() && sauvegarde.back() < '9' && ChercherFichier(repertoire, sauvegarde)) ++sauvegarde.back();
  return sauvegarde;
}

std::string Sauvegarder(JeuDeFichiers& sorties, const Chemin& ancien, std::string_view nom) {
  std::string copie = NomDeSauvegardeLibre(ancien.parent_path(), nom);
  sorties.Copier(ancien, copie, Nature::Unique);
  return copie;
}

bool MemesOctets(const Chemin& a, const Chemin& b) {
  constexpr std::size_t kMorceau = std::size_t{1} << 20;
  if (LongueurFichier(a) != LongueurFichier(b)) return false;
  std::uintmax_t place = 0;
  for (std::string octets; octets = LireMorceau(a, place, kMorceau), !octets.empty(); place += octets.size())
    if (octets != LireMorceau(b, place, kMorceau)) return false;
  return true;
}

}  // namespace quelvar
