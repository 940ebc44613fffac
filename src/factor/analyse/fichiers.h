// The files that a factor analysis leaves: its report, and the coordinates, .FAJ and .FJ2 for the columns, .FAI and
// .FI2 for the rows.
#pragma once

#include <array>
#include <string_view>
#include <vector>

#include "core/fichiers/jeu.h"
#include "core/programme/programme.h"
#include "factor/analyse/facteurs.h"
#include "factor/analyse/tableau.h"

namespace quelvar::factor {

// Whether the sign of factor 1, 2 or 3 is reversed. From four factors on none is, unless they are to be classified.
using InversionsDeFacteurs = std::array<bool, 3>;

// ".AFC" or ".ACP": the report of the analysis done last.
std::string_view DerniereAnalyse(const Contexte& contexte);

// Lines of the report that are read again begin so; the value stands behind.
inline constexpr std::string_view kNombreDeFacteurs = "Le nombre de facteurs a extraire est de";
inline constexpr std::string_view kValeurPropre = "Valeur propre =";
inline constexpr std::string_view kPourcentage = "Pourcentage du total =";

// The eigenvalues, as many as the report announces factors or fewer. Raises kArgumentIncorrect for a negative one, and
// the failures of LecteurLignes, with the line.
std::vector<double> LireValeursPropres(const Chemin& rapport);

// The shares of the factors in the inertia, percent. Raises the failures of LecteurLignes.
std::vector<double> LireParts(const Chemin& rapport);

// The inertia of an element as its line has it.
double InertiePourMille(double inertie, double total);

// Writes the four files into the set; coordinates are thousandths.
void EcrireCoordonnees(const Contexte& contexte, JeuDeFichiers& sorties, const PlanAnecar& plan,
                       const TableauAnecar& tableau, const AnalyseAnecar& analyse,
                       const InversionsDeFacteurs& inversions, bool classification);

}  // namespace quelvar::factor
