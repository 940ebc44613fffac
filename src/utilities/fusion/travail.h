// What a fusion works on: its inputs as a first reading found them, the identifiers of their lines, and its result.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/fichiers/jeu.h"
#include "core/programme/programme.h"
#include "utilities/entrees/fichiers.h"
#include "utilities/fusion/fusion.h"
#include "utilities/fusion/pos.h"

namespace quelvar::utilities {

// An input and what a first reading tells of it.
struct FichierMesure {
  EntreeChoisie entree;
  std::int64_t lignes = 0;
  std::size_t plusLongue = 0;
  std::uintmax_t octets = 0;
};

// Raises the failures of LecteurLignes.
FichierMesure Mesurer(EntreeChoisie entree);

// The .POS of both inputs, when both are there with questions.
struct PaireDePos {
  PosDeFusion a, b;
};

// Nothing unless the options ask for them and both have questions.
std::optional<PaireDePos> LirePaireDePos(const Contexte& contexte, const OptionsFusion& options);

struct TravailDeFusion {
  const Contexte& contexte;
  const OptionsFusion& options;
  Rapport& rapport;
  FichierMesure a, b;
  std::optional<PaireDePos> pos;
};

// Where the identifiers stand: columns from 1, and their width.
struct Identifiants {
  std::size_t a = 0, b = 0, largeur = 0;

  std::string_view DeA(std::string_view ligne) const { return Milieu(ligne, a, largeur); }
  std::string_view DeB(std::string_view ligne) const { return Milieu(ligne, b, largeur); }
};

// Raises kArgumentIncorrect for a position or a width below 1, and for identifiers beyond every line of a file: they
// would all be equal.
Identifiants IdentifiantsDe(const TravailDeFusion& travail);

// C and its .POS, which come into being together: outputs of the generic that they make.
class Resultat {
 public:
  // The report tells what was repaired there.
  explicit Resultat(const TravailDeFusion& travail);
  Ecrivain& Fichier() { return c_; }
  void Valider(const std::vector<std::string>& lignesPos);
  // What stands there of a fusion that stops, without a .POS.
  void Laisser();

 private:
  // What the output of that name replaces of the data set in force.
  void Garder(std::string_view nom);

  const TravailDeFusion& travail_;
  Chemin chemin_;
  JeuDeFichiers sorties_;
  Ecrivain& c_;
};

}  // namespace quelvar::utilities
