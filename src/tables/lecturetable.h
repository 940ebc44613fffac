// Reads the table files that Ecapem works on: a rectangular table, or the upper half of a Burt table.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "core/calcul/matrice.h"
#include "core/enquete/brtfile.h"
#include "core/enquete/posfile.h"
#include "core/fichiers/fichiers.h"
#include "core/programme/programme.h"
#include "tables/liens/liaisons.h"
#include "tables/nomselements.h"

namespace quelvar::tables {

struct TableLue {
  Matrice effectifs;
  std::vector<NomDElement> lignes;
  Constats constats = {};  // on cells that are no numbers, and rows behind the last one
};

// The first `lignes` rows of a .BRT. Raises kFinDeFichierDepassee when it has fewer, and the failures of LireLigneBrt
// and LecteurLignes.
TableLue LireTable(const Chemin& brt, std::size_t lignes, std::size_t colonnes, int largeur);

// Half a Burt table, and what is to be told of its cells.
struct BurtLu {
  DemiBurt burt;
  Constats constats = {};
};

// The first `modalites` rows of a Burt table, cut in as many cells; there are at least as many names. Raises as above,
// and a sentence (kIncompatibiliteType) when the rows are not those of these modalities.
BurtLu LireDemiBurt(const Chemin& brt, std::size_t modalites, int largeur, const std::vector<NomDElement>& noms);

// Individuals of the survey behind a Burt table, from the size line of its .POS; a count that it leaves unknown is that
// of the data lines. Raises the failures of LecteurLignes.
std::int64_t IndividusDuBurt(const Contexte& contexte, const LigneTaille& taille);

}  // namespace quelvar::tables
