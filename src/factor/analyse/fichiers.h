// The files that a factor analysis leaves: its report, and the coordinates, .FAJ and .FJ2 for the columns, .FAI and
// .FI2 for the rows.
#pragma once

#include <array>
#include <string_view>

#include "core/fichiers/jeu.h"
#include "core/programme/programme.h"
#include "factor/analyse/facteurs.h"
#include "factor/analyse/tableau.h"

namespace quelvar::factor {

// Whether the sign of factor 1, 2 or 3 is reversed. From four factors on none is, unless they are to be classified.
using InversionsDeFacteurs = std::array<bool, 3>;

// ".AFC" or ".ACP": the report of the analysis done last.
std::string_view DerniereAnalyse(const Contexte& contexte);

// The inertia of an element as its line has it.
double InertiePourMille(double inertie, double total);

// Writes the four files into the set; coordinates are thousandths.
void EcrireCoordonnees(const Contexte& contexte, JeuDeFichiers& sorties, const PlanAnecar& plan,
                       const TableauAnecar& tableau, const AnalyseAnecar& analyse,
                       const InversionsDeFacteurs& inversions, bool classification);

}  // namespace quelvar::factor
