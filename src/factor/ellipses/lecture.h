// What the inertia ellipses read of the generic: eigenvalues of the report, coordinates of the individuals, and who has
// which modality.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "core/dessin/dessin.h"
#include "core/fichiers/fichiers.h"
#include "factor/ellipses/ellipses.h"

namespace quelvar::factor {

// Square roots of the eigenvalues that the report of a factor analysis tells, as many as it tells factors. Raises
// kArgumentIncorrect for a negative one.
std::vector<double> RacinesDesValeursPropres(const Chemin& rapport);

// Where the modalities stand in the rows of individuals.
struct LignesDIndividus {
  Chemin fichier;           // .BRT or .CDG
  std::size_t sautees = 0;  // lines before the first individual
  std::size_t largeur = 1;  // characters of a cell
  std::size_t colonnes = 0;
};

// The clouds of the modalities (ranks in the .MOD from 0): one for each, over the individuals whose cell isn't zero.
// `points` are the coordinates of the individuals, thousandths, in the order of the file. Raises kFinDeFichierDepassee
// for a file that is too short, a sentence (kIncompatibiliteType) for one that holds other modalities or more
// individuals.
std::vector<Nuage> LireNuages(const LignesDIndividus& lignes, std::span<const std::size_t> places,
                              std::span<const Position> points);

}  // namespace quelvar::factor
