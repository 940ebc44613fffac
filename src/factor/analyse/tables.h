// The results of a factor analysis as tables of data: what the editions lay out, and what goes to files of tables.
//
// Those of individuals can have millions of rows: they are made some rows at a time, and their heads stand with the
// editions, which print them once.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
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

// The elements at these positions: number from 1, name, coordinate (thousandths), CPF; label.
TableauEdite TableTriee(const ElementsAnecar& elements, const CoteFacteur& cote, std::span<const std::size_t> positions);

// The elements of a run of positions: coordinate and CPF on each factor; label.
TableauEdite TableCompacte(const Dimension& dimension, const AnalyseAnecar& analyse, Tranche positions);

// QLT, then coordinate, COS2 and CPF on each factor; label.
TableauEdite TableEtendue(const Dimension& dimension, const AnalyseAnecar& analyse, Tranche positions);
// One row in the same columns: the shares of the factors, and the CPF of an element that is like all others. Raises
// kDepassementCapacite without active elements.
TableauEdite MoyenneEtendue(const Dimension& dimension, const AnalyseAnecar& analyse);

// What is left of the deviations, in individuals: a cell each active column.
TableauEdite TableDesEcarts(const ElementsAnecar& lignes, const Matrice& ecarts, double effectif, int decimales,
                            Tranche positions);

// What a factor gives back of them: the same cells, then weight, coordinate and half product of the row.
TableauEdite TableReconstituee(const ElementsAnecar& lignes, const Reconstitution& reconstitution, int decimales,
                               Tranche positions);
// One of these three of the columns, a cell each, and what ends its row.
TableauEdite MesureDesColonnes(std::string titre, const Reconstitution& reconstitution,
                               double ElementReconstitue::*mesure, int decimales, std::vector<Cellule> fin);

}  // namespace quelvar::factor
