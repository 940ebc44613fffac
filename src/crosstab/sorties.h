// The files that a launch leaves beside its report: the isolated table and the points of the triangular graph.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "core/enquete/trgfile.h"
#include "core/fichiers/jeu.h"
#include "core/programme/programme.h"
#include "crosstab/edition/editions.h"

namespace quelvar::crosstab {

// Saves a table as .MOD and .BRT: its modalities by their names of four characters, with their labels behind. Raises
// the failures of writing.
void EcrireTableauIsole(const Contexte& contexte, const EnqueteCroisee& enquete, const TableauTitre& titre,
                        JeuDeFichiers& sorties);

// What a launch adds to the .TRG: the names of the vertices, for a file that is not there yet, and the lines of the
// points.
struct AjoutTrg {
  std::array<std::string, kSommetsTrg> sommets;
  std::vector<std::string> points;
  std::int64_t tableauxRefuses = 0;  // they have not three columns
};

// Takes the rows of a table as points. The vertices of the triangle are its three columns; another table is refused.
void RetenirPourTrg(AjoutTrg& ajout, const EnqueteCroisee& enquete, const TableauTitre& titre);

// The former lines, then these, each a line of its own. Raises the failures of reading and writing.
void AjouterAuTrg(const Contexte& contexte, const AjoutTrg& ajout, JeuDeFichiers& sorties);

}  // namespace quelvar::crosstab
