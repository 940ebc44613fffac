// The editions of a factor analysis: its results laid out in the columns of the report.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/programme/rapport.h"
#include "factor/analyse/facteurs.h"
#include "factor/analyse/tableau.h"

namespace quelvar::factor {

enum class EditionAnecar { Compacte = 1, Triee = 2, Etendue = 3 };

// Smallest CPF of a listed element; nothing where no threshold is told.
struct SeuilsAnecar {
  std::optional<int> lignes;
  std::optional<int> colonnes;
};

// A line each name of the .MOD that no column has.
void ImprimerInconnus(Rapport& rapport, const std::vector<std::string>& noms);

// The sizes of the table, as declared.
void ImprimerDimensions(Rapport& rapport, const PlanAnecar& plan, const SeuilsAnecar& seuils);

// Kind of analysis and total inertia, then the number of factors.
void ImprimerTitre(Rapport& rapport, const AnalyseAnecar& analyse);
void ImprimerNombreDeFacteurs(Rapport& rapport, int nombre);

// The number of the factor (from 1), before it is looked for, then its eigenvalue and share.
void ImprimerDebutDeFacteur(Rapport& rapport, std::size_t k);
void ImprimerFacteur(Rapport& rapport, const FacteurAnecar& facteur);
// What the coordinates behind are multiplied by; nothing for 1.
void ImprimerEchelle(Rapport& rapport, double echelle);

// The listed elements of factor k.
void ImprimerLignesTriees(Rapport& rapport, const ListeTriee& liste, std::size_t k);
void ImprimerColonnesTriees(Rapport& rapport, const ListeTriee& liste, std::size_t k);

// What is left of the deviations before a factor is taken off them: d over the active cells, and the total that makes
// individuals of them.
struct EcartsRestants {
  const Matrice& d;
  double effectif = 0;
};
// In individuals with that many decimals. Raises kArgumentIncorrect for more than 99 decimals.
void ImprimerEcartsRestants(Rapport& rapport, const ElementsAnecar& lignes, const ElementsAnecar& colonnes,
                            const EcartsRestants& restants, int decimales);
// What the factor gives back of the deviations.
void ImprimerReconstitution(Rapport& rapport, const ElementsAnecar& lignes, const ElementsAnecar& colonnes,
                            const Reconstitution& reconstitution, int decimales);

// The final tables of all factors.
void ImprimerTablesCompactes(Rapport& rapport, const PlanAnecar& plan, const TableauAnecar& tableau,
                             const AnalyseAnecar& analyse);
void ImprimerTablesEtendues(Rapport& rapport, const PlanAnecar& plan, const TableauAnecar& tableau,
                            const AnalyseAnecar& analyse);

}  // namespace quelvar::factor
