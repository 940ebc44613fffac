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

}  // namespace quelvar
