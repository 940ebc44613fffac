// The results of a factor analysis as rows and tables of data: what the editions lay out, and what goes to files of
// tables. Elements are told by their position.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/resultats/tableau.h"
#include "factor/analyse/facteurs.h"
#include "factor/analyse/tableau.h"

namespace quelvar::factor {

// Eigenvalue and share of a factor, the eigenvalue marked "*" where the factor has not converged.
std::vector<Cellule> ValeurPropre(const FacteurAnecar& facteur);
// Those of all factors, a row each.
TableauEdite ValeursPropres(const AnalyseAnecar& analyse);

// One dimension of the analysed table with the results on it.
struct Dimension {
  const ElementsAnecar& elements;
  const std::vector<std::int16_t>& qlt;
  CoteFacteur FacteurAnecar::*cote;
};
Dimension DimensionDesLignes(const TableauAnecar& tableau, const AnalyseAnecar& analyse);
Dimension DimensionDesColonnes(const PlanAnecar& plan, const AnalyseAnecar& analyse);

// An element of a sorted listing: number from 1, name, coordinate (thousandths), CPF; label.
Rangee RangeeTriee(const ElementsAnecar& elements, const CoteFacteur& cote, std::size_t position);
// The titles of these columns; that of the number is the one letter of the dimension.
std::vector<Colonne> ColonnesTriees(std::string_view numero);

// An element by its name: coordinate and CPF on each factor; label. The titles of these columns.
Rangee RangeeCompacte(const Dimension& dimension, const AnalyseAnecar& analyse, std::size_t position);
std::vector<Colonne> ColonnesCompactes(std::size_t facteurs);

// An element by its name: QLT, then coordinate, COS2 and CPF on each factor; label. The titles of these columns.
Rangee RangeeEtendue(const Dimension& dimension, const AnalyseAnecar& analyse, std::size_t position);
std::vector<Colonne> ColonnesEtendues(std::size_t facteurs);
// The same cells for all active elements: the shares of the factors, and the CPF of an element that is like all others.
// Raises kDepassementCapacite without active elements.
Rangee MoyenneEtendue(const Dimension& dimension, const AnalyseAnecar& analyse);

// What is left of the deviations of an active row, in individuals: a cell each active column. The titles of
// these columns.
Rangee RangeeDesEcarts(const std::string& nom, std::span<const double> ecarts, double effectif, int decimales);
std::vector<Colonne> ColonnesDesEcarts(const ElementsAnecar& colonnes);
inline constexpr std::size_t kMesuresDUneLigne = 3;
// What a factor gives back of them: the same cells, then weight, coordinate and half product of the row. The titles
// of these columns.
Rangee RangeeReconstituee(const std::string& nom, const Reconstitution& reconstitution, int decimales,
                          std::size_t position);
std::vector<Colonne> ColonnesReconstituees(const ElementsAnecar& colonnes);
// One of these three of the columns, a cell each.
Rangee MesureDesColonnes(std::string titre, const Reconstitution& reconstitution, double ElementReconstitue::*mesure,
                         int decimales);

}  // namespace quelvar::factor
