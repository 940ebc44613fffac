#include "core/resultats/cadre.h"
#include "core/resultats/largeurfixe.h"
#include "crosstab/edition.h"

namespace quelvar::crosstab {

namespace {

constexpr int kLargeurAttraction = 6;
constexpr std::int64_t kIndividusSurCinqPlaces = 99999;
constexpr std::string_view kTotalEnLigne = "   Total      en ligne";
constexpr std::string_view kTotalEnColonne = "   Total     en colonne";

// The places of a cell: a count by its format, a contribution with the decimal that its size leaves room for.
constexpr EcritureEnCase kEffectif = {.entiers = 5, .decimales = 0, .blancs = 2};
constexpr EcritureEnCase kGrandEffectif = {.entiers = 7, .decimales = 0, .blancs = 0};
constexpr EcritureEnCase kEffectifPondere = {.entiers = 4, .decimales = 1, .blancs = 1};
constexpr EcritureEnCase kContribution[] = {
    {.entiers = 3, .decimales = 1, .blancs = 1, .sous = 1000},
    {.entiers = 5, .decimales = 0, .blancs = 1, .sous = 100000},
    {.entiers = 6, .decimales = 0, .blancs = 0},
};

const EcritureEnCase& EcritureDe(FormatEffectif format) {
  switch (format) {
    case FormatEffectif::Pondere: return kEffectifPondere;
    case FormatEffectif::GrandEntier: return kGrandEffectif;
    case FormatEffectif::Entier: break;
  }
  return kEffectif;
}

// The places that may widen the cells, each with its largest value: the total and the whole chi-square.
std::vector<PlaceEnCase> Places(const TableauCroise& tableau, FormatEffectif format) {
  constexpr int usuellesDEffectif = 5;
  constexpr int usuellesDeGrandEffectif = 7;
  constexpr int usuellesDEffectifPondere = 6;
  constexpr int usuellesDeContribution = 7;
  const double total = tableau.compte.marges.total;
  const PlaceEnCase effectif = format == FormatEffectif::Pondere       ? PlaceEnCase{total, 1, usuellesDEffectifPondere}
                               : format == FormatEffectif::GrandEntier ? PlaceEnCase{total, 0, usuellesDeGrandEffectif}
                                                                       : PlaceEnCase{total, 0, usuellesDEffectif};
  return {effectif, {tableau.khi2, 0, usuellesDeContribution}};
}

// Count and row percentage.
std::string PremiereMoitie(const TablesCroisees& tables, FormatEffectif format, std::size_t i, std::size_t j,
                           int supplement) {
  const Cellule& pourcentage = tables.pourcentages.rangees[i].cellules[j];
  const double effectif = *tables.effectifs.rangees[i].cellules[j].valeur;
  return TexteEnCase(effectif, {&EcritureDe(format), 1}, supplement) +
         (pourcentage.decimales > 0 ? TextePourcentage(*pourcentage.valeur) : NombreFixe(*pourcentage.valeur, 5, 0)) +
         "|";
}

// Contribution to the chi-square and local PEM, with the sign that closes the cell.
std::string SecondeMoitie(const TablesCroisees& tables, std::size_t i, std::size_t j, int supplement) {
  const Cellule& attraction = tables.attractions.rangees[i].cellules[j];
  return TexteEnCase(*tables.contributions.rangees[i].cellules[j].valeur, kContribution, supplement) +
         TexteEnColonne(attraction, kLargeurAttraction) + (attraction.marque.empty() ? "|" : attraction.marque);
}

}  // namespace

FormatEffectif FormatDesEffectifs(const EnqueteCroisee& enquete) {
  if (enquete.Pondere()) return FormatEffectif::Pondere;
  return enquete.individus > kIndividusSurCinqPlaces ? FormatEffectif::GrandEntier : FormatEffectif::Entier;
}

void EcrireEditionEtendue(Rapport& rapport, const TableauTitre& titre, const TablesCroisees& tables,
                          FormatEffectif format, const OptionsEdition& options) {
  if (format == FormatEffectif::Pondere) {
    rapport.Ligne("Les effectifs avec décimale sont le résultat d'une pondération"_w);
    rapport.Ligne();
  }
  TableCadree table{{"N=    %Ligne", "Khi2 %Attrac"}, {}, {}, Places(titre.tableau, format), {}};
  for (const std::size_t i : titre.tableau.lignes) table.lignes.push_back(titre.IntituleLigne(i));
  table.lignes.push_back(kTotalEnColonne);
  for (const std::size_t j : titre.tableau.colonnes) table.colonnes.push_back(titre.IntituleColonne(j));
  table.colonnes.push_back(kTotalEnLigne);
  table.texte = [&](std::size_t i, std::size_t j, std::size_t ligne, int supplement) {
    return ligne == 0 ? PremiereMoitie(tables, format, i, j, supplement) : SecondeMoitie(tables, i, j, supplement);
  };
  FormeCadree forme;
  forme.lignesParPage = static_cast<std::size_t>(options.lignesParPage);
  forme.colonnesParPage = static_cast<std::size_t>(options.colonnesParPage);
  ImprimerCadre(rapport, table, forme);
  rapport.Ligne();
}

}  // namespace quelvar::crosstab
