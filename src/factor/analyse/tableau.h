// The table that a factor analysis works on: what its modality file declares, and its cells read from the .BRT.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "core/calcul/matrice.h"
#include "core/enquete/modfile.h"
#include "core/enquete/parametres.h"
#include "core/fichiers/fichiers.h"
#include "core/programme/constats.h"
#include "factor/analyse/supplementaires.h"

namespace quelvar::factor {

// The rows or the columns of the reorganised table, in the order of their positions: active ones first, supplementary
// ones behind them.
struct ElementsAnecar {
  std::vector<std::string> noms;       // 4 characters
  std::vector<std::string> intitules;  // long labels
  std::size_t actifs = 0;

  std::size_t Nombre() const { return noms.size(); }
  std::size_t Supplementaires() const { return Nombre() - actifs; }
};

// A square Burt table has the same elements in rows and columns; its supplementary rows would only repeat the columns
// and are left out.
enum class GenreTableau { Rectangulaire, BurtEtIndividus, BurtCarre };

struct PlanAnecar {
  GenreTableau genre = GenreTableau::Rectangulaire;
  int burt = 0;                    // BRT= as it stands
  int largeur = 0;                 // characters of a cell
  int decimales = 0;               // of the residual tables; 0: not printed
  std::int64_t lignesSautees = 0;  // lines of the file before the first row
  std::int64_t lignes = 0;
  std::int64_t lignesActives = 0;  // may be below 0 in a wrong declaration
  ElementsAnecar colonnes;
  std::vector<std::size_t> positions;  // of the columns, in the order of the modality file

  std::int64_t LignesSup() const { return lignes - lignesActives; }
  // Position of row i of the file, both from 0; in a square Burt table only those below lignesActives are kept.
  std::size_t PositionLigne(std::size_t i) const {
    return genre != GenreTableau::Rectangulaire && i < positions.size() ? positions[i] : i;
  }
};

// Raises kFinDeFichierDepassee when the file has fewer modality lines than declared, kDepassementCapacite for a size
// beyond 64 bits, kIndiceHorsSelection for a negative one or for a Burt table with fewer rows than modalities; the
// caller knows the file.
PlanAnecar PlanifierTableau(const ParametresMod& parametres, const FichierMod& mod, bool codageLogique);

// Gives each modality line's label to the column of its name; returns the names that no column has.
std::vector<std::string> AttribuerIntitules(const FichierMod& mod, PlanAnecar& plan);

struct TableauAnecar {
  Matrice actives;      // active rows x active columns: counts, later deviations
  Matrice colonnesSup;  // active rows x supplementary columns
  // Over the active columns; nothing when there are none.
  std::unique_ptr<LignesSupplementaires> lignesSup;
  ElementsAnecar lignes;
  Constats constats = {};  // on cells that are no numbers, and rows behind the last one
};

// Reads the counts; the supplementary rows go to the scratch file. Raises kFinDeFichierDepassee when the file has fewer
// rows than declared, kDepassementCapacite for a value beyond its type.
TableauAnecar LireTableau(const Chemin& brt, const PlanAnecar& plan, const Chemin& travail);

}  // namespace quelvar::factor
