#include "core/fichiers/sauvegarde.h"

#include <algorithm>

namespace quelvar {

std::string NomDeSauvegarde(std::string_view nom, int numero) {
  const std::string chiffres = std::to_string(numero);
  return Joindre({nom.substr(0, nom.size() - std::min(nom.size(), chiffres.size())), chiffres});
}

std::string NomDeSauvegardeLibre(const Chemin& repertoire, std::string_view nom) {
  for (int numero = 2; numero <= kSauvegardes; ++numero)
    if (std::string copie = NomDeSauvegarde(nom, numero); !ChercherFichier(repertoire, copie)) return copie;
  throw Erreur(kAccesFichier,
               Joindre({"*** Arret du programme : les copies de ", nom, ", de ", NomDeSauvegarde(nom, 2), " à "_w,
                        NomDeSauvegarde(nom, kSauvegardes), ", existent toutes ; effacez celles qui ne servent plus"}));
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
