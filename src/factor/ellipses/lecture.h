// What the inertia ellipses read of the individuals: who has which modality, and whether their rows are those of their
// coordinates.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "core/calcul/matrice.h"
#include "core/dessin/dessin.h"
#include "core/fichiers/fichiers.h"
#include "factor/ellipses/ellipses.h"

namespace quelvar::factor {

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

// The first individual, from 1, whose coordinates (factors x individuals) are not those of its row: two with the same
// active cells have the same ones; where no two have, those of a correspondence analysis are the mean of the columns
// (factors x columns) that the individual has, at the scale of the factor. Less than 30 individuals are not looked at:
// so few may have been typed. Nothing when all hold, or when nothing can be said. Raises the failures of LecteurLignes.
std::optional<std::int64_t> PremierDeplace(const LignesDIndividus& lignes, const std::vector<bool>& actives,
                                           const Matrice& coordonnees, const Matrice* colonnes);

}  // namespace quelvar::factor
