// A table saved as dBase: its rows and columns, read before anything is written, and its cells as they go to .BRT.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "capture/dbase/dbf.h"
#include "capture/dbase/remarques.h"
#include "core/fichiers/fichiers.h"

namespace quelvar::capture {

// The table as its header describes it.
struct TableauDBase {
  ChampDbf noms;
  std::vector<ChampDbf> colonnes;
  ChampDbf nomsLongs;
  std::size_t largeur = 0;  // of every cell in .BRT
};

// The source, read as far as it can be.
struct TableauLu {
  EnteteDbf entete;
  std::uintmax_t taille = 0;
  std::int64_t lignes = 0;
  TableauDBase tableau;
  std::vector<std::string> noms;  // of the rows, as they stand
};

// Reads all that can go wrong before anything is written. Raises kIndiceHorsSelection for fewer than three fields,
// kIncompatibiliteType for a word among the counts, kFinDeFichierDepassee without rows, and what LireEnteteDuFichier
// raises; `lu` has then what was read before.
void LireTableau(const Chemin& dbf, TableauLu& lu);

// The rows under these names, one each; what was met on the way. Raises the failures of LecteurDbf and of writing.
PassageDbf EcrireBrt(Ecrivain& brt, const Chemin& dbf, const TableauLu& lu, const std::vector<std::string>& noms);

}  // namespace quelvar::capture
