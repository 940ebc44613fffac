// The tree file .CAH: written by the classification, read by whatever cuts or draws the tree.
#pragma once

#include <string_view>
#include <vector>

#include "core/fichiers/fichiers.h"
#include "factor/classement/ward.h"

namespace quelvar::factor {

struct ArbreCah {
  bool individus = false;         // elements are individuals, and not the modalities of the .MOD
  std::vector<EtapeWard> etapes;  // without their criteria when they are read
};

// What makes the file anew.
inline constexpr std::string_view kRelancerCah = "relancez l'analyse factorielle avec la classification";

inline constexpr int kEtapesAuPlus = 999999;  // that an option can ask for

// What the elements are, the steps, and the members of the class that each step makes.
void EcrireCah(Ecrivain& fichier, const ArbreCah& arbre);

// Raises kFinDeFichierDepassee for a file without its first line, kIndiceHorsSelection for a number that stands for no
// element or no earlier step or that stands twice, and the failures of LecteurLignes, with file and line.
ArbreCah LireCah(const Chemin& chemin);

}  // namespace quelvar::factor
