#include "core/fichiers/sauvegarde.h"

namespace quelvar {

std::string NomDeSauvegardeLibre(const Chemin& repertoire, std::string_view nom) {
  std::string sauvegarde = NomDeSauvegarde(nom);
  while (!sauvegarde.empty() && sauvegarde.back() < '9' && ChercherFichier(repertoire, sauvegarde)) ++sauvegarde.back();
  return sauvegarde;
}

}  // namespace quelvar
