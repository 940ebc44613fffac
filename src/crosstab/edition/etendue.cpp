#include "core/resultats/cadre.h"
#include "crosstab/edition/editions.h"

namespace quelvar::crosstab {

namespace {

constexpr int kLargeurPourcentage = 5;
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

// Columns of a count, and of a contribution, where each has one blank before it.
int ColonnesUsuelles(FormatEffectif format) {
  switch (format) {
    case FormatEffectif::Pondere: return 6;
    case FormatEffectif::GrandEntier: return 7;
    case FormatEffectif::Entier: break;
  }
  return 5;
}
constexpr int kColonnesDeContribution = 7;

// Count and row percentage; below, contribution to the chi-square and local PEM. The total and the whole chi-square are
// the largest of their places.
std::array<std::vector<PlaceEnCase>, kLignesDeCase> Places(const TableauCroise& tableau, const TablesCroisees& tables,
                                                           FormatEffectif format) {
  const EcritureEnCase& effectif = EcritureDe(format);
  return {{{{.tableau = &tables.effectifs,
             .ecritures = {&effectif, 1},
             .plusGrande = tableau.compte.marges.total,
             .decimales = effectif.decimales,
             .usuelles = ColonnesUsuelles(format)},
            {.tableau = &tables.pourcentages, .colonnes = kLargeurPourcentage}},
           {{.tableau = &tables.contributions,
             .ecritures = kContribution,
             .plusGrande = tableau.khi2,
             .usuelles = kColonnesDeContribution},
            {.tableau = &tables.attractions, .colonnes = kLargeurAttraction, .fermeLaCase = true}}}};
}

}  // namespace

FormatEffectif FormatDesEffectifs(const EnqueteCroisee& enquete) {
  if (enquete.Pondere()) return FormatEffectif::Pondere;
  return enquete.individus > kIndividusSurCinqPlaces ? FormatEffectif::GrandEntier : FormatEffectif::Entier;
}

void ImprimerEditionEtendue(Rapport& rapport, const TableauTitre& titre, const TablesCroisees& tables,
                            FormatEffectif format, const OptionsEdition& options) {
  if (format == FormatEffectif::Pondere) {
    rapport.Ligne("Les effectifs avec décimale sont le résultat d'une pondération"_w);
    rapport.Ligne();
  }
  TableCadree table{{"N=    %Ligne", "Khi2 %Attrac"}, {}, {}, Places(titre.tableau, tables, format)};
  for (const std::size_t i : titre.tableau.lignes) table.lignes.push_back(titre.IntituleLigne(i));
  table.lignes.push_back(kTotalEnColonne);
  for (const std::size_t j : titre.tableau.colonnes) table.colonnes.push_back(titre.IntituleColonne(j));
  table.colonnes.push_back(kTotalEnLigne);
  FormeCadree forme;
  forme.lignesParPage = static_cast<std::size_t>(options.lignesParPage);
  forme.colonnesParPage = static_cast<std::size_t>(options.colonnesParPage);
  ImprimerCadre(rapport, table, forme);
  rapport.Ligne();
}

}  // namespace quelvar::crosstab
