// Rows and columns of a .BRT added together: one pass that writes the new table and keeps what a report tells of it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/fichiers/fichiers.h"

namespace quelvar::modalities {

// What is to be grouped, and how the table is cut.
struct PlanDeRegroupement {
  std::vector<char> colonnes;      // 1 for the marked ones
  std::vector<char> lignes;        // 1 for the marked ones, by row; those behind its end are not marked
  int ancienneLargeur = 1;         // of a cell as read
  std::int64_t lignesActives = 0;  // rows before the supplementary ones
  std::string nomCourt;            // of the new row

  bool AvecColonnes() const;
  bool AvecLignes() const;
  // Where the marks of the supplementary rows begin.
  std::vector<char>::const_iterator FinDesActives() const;
  // Whether any marked row stands before the supplementary ones: then the group is active.
  bool GroupeActif() const;
};

struct LigneGroupee {
  std::string nom;
  double frequence = 0;  // its cell in the group's column, or its first cell
};

// Cells that are added up and hold no whole number from 0 on, and what short rows lack.
struct CellulesDouteuses {
  std::int64_t nombre = 0;
  std::string premiere;  // where the first of them stands
};

struct BilanDeRegroupement {
  bool colonneTropLarge = false;  // a sum of columns does not fit: the rest is unset
  bool ligneTropLarge = false;    // a sum of rows does not fit
  std::vector<LigneGroupee> lignes;
  double frequence = 0;        // of the group
  std::int64_t rangees = 0;    // rows written
  std::int64_t lignesSup = 0;  // of them, supplementary
  CellulesDouteuses douteuses;
};

// Writes the new table with cells of that width. Raises kArgumentIncorrect for a width below 1 and the failures of
// LecteurLignes.
BilanDeRegroupement Regrouper(const Chemin& brt, const PlanDeRegroupement& plan, int largeur, Ecrivain& sortie);

}  // namespace quelvar::modalities
