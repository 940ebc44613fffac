// The counted table that the table utilities work on: the pair .BRT and .MOD of the current generic, checked in the
// same way by each.
#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "core/enquete/parametres.h"
#include "core/programme/programme.h"

namespace quelvar::utilities {

struct ColonneDeTableau {
  std::string nom;       // 4 characters
  std::string intitule;  // at most 25 characters from column 8, as they stand
  bool supplementaire = false;
};

// A table without its cells, which are read row by row.
struct TableauDuGenerique {
  Chemin brt;
  std::string titre;
  ParametresMod parametres;
  std::vector<ColonneDeTableau> colonnes;
  std::int64_t lignesDuFichier = 0;  // rows that .BRT holds, blank lines at its end left out
  std::int64_t lignes = 0;           // rows of the table, or of one of its blocks

  bool AUnFormat() const { return parametres.largeur != 0; }

  // What is left over when the rows are cut in blocks makes none.
  std::int64_t Blocs() const { return lignes > 0 ? std::max<std::int64_t>(lignesDuFichier / lignes, 1) : 1; }
};

// Cells that are not what they should be, and where the first of them stands.
struct CellulesAPart {
  std::int64_t nombre = 0;
  std::string premiere;

  void Noter(std::int64_t ligne, std::size_t colonne, std::string_view cellule);
  // Adds the line that tells them with their count; none without such cells.
  void Dire(Texte sorte, std::vector<std::string>& remarques) const;
};

// A line for each file of the pair that is missing.
std::vector<std::string> FichiersManquants(const Contexte& contexte);
// Reads the pair but for the cells; without its rows when there is no format. Raises kFinDeFichierDepassee for a .MOD
// of less than two lines, kArgumentIncorrect for a width below 0, and a sentence (kIncompatibiliteType) for a list of
// names that lacks columns.
TableauDuGenerique LireTableau(const Contexte& contexte);

// One cell at a time, row by row.
struct LigneDeTableau {
  std::int64_t rang = 0;                   // in the file, from 1
  bool courte = false;                     // ends before its last cell does
  std::string nom;                         // 4 characters
  std::vector<std::string_view> cellules;  // as they stand in the file; they live until the next row
  std::string intitule;                    // trimmed, at most 25 characters
};
// Gives the first `lignes` rows. Raises kFinDeFichierDepassee when the file has fewer.
void ParcourirTableau(const TableauDuGenerique& tableau, std::int64_t lignes,
                      const std::function<void(const LigneDeTableau&)>& recevoir);

// What counts for 0 without being one: cells that hold no number, and what short rows lack.
class CellulesSansNombre {
 public:
  void Voir(const LigneDeTableau& ligne);
  // A line for each sort of them.
  std::vector<std::string> Remarques() const;

 private:
  CellulesAPart textes_;
  std::int64_t courtes_ = 0;
  std::int64_t premiereCourte_ = 0;
};

}  // namespace quelvar::utilities
