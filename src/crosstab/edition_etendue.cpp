#include <algorithm>

#include "core/resultats/largeurfixe.h"
#include "crosstab/edition.h"

namespace quelvar::crosstab {

namespace {

constexpr int kLargeurCellule = 12;
constexpr int kLargeurAttraction = 6;
constexpr int kLargeurContribution = 7;
constexpr std::int64_t kIndividusSurCinqPlaces = 99999;
constexpr std::string_view kTotalEnLigne = "   Total      en ligne";
constexpr std::string_view kTotalEnColonne = "   Total     en colonne";

// Columns of a count before any widening.
int LargeurUsuelle(FormatEffectif format) {
  switch (format) {
    case FormatEffectif::Pondere: return 6;
    case FormatEffectif::GrandEntier: return 7;
    case FormatEffectif::Entier: break;
  }
  return 5;
}

// A count, `supplement` columns wider than usual.
std::string TexteEffectif(double effectif, FormatEffectif format, int supplement) {
  switch (format) {
    case FormatEffectif::Pondere: return NombreFixe(effectif, 4 + supplement, 1) + " ";
    case FormatEffectif::GrandEntier: return NombreFixe(effectif, 7 + supplement, 0);
    case FormatEffectif::Entier: break;
  }
  return NombreFixe(effectif, 5 + supplement, 0) + "  ";
}

std::string TexteContribution(double contribution, int supplement) {
  if (contribution < 1000) return NombreFixe(contribution, 3 + supplement, 1) + " ";
  return contribution < 100000 ? NombreFixe(contribution, 5 + supplement, 0) + " "
                               : NombreFixe(contribution, 6 + supplement, 0);
}

std::string_view PremiereLigne(std::string_view intitule) { return Milieu(intitule, 1, kLargeurCellule); }
std::string_view SecondeLigne(std::string_view intitule) {
  return Milieu(intitule, kLargeurCellule + 1, kLargeurCellule);
}

// The non-empty rows and columns of a table, then its totals: rank `lignes` is the total row, rank `colonnes` the total
// column.
struct Grille {
  const TableauTitre& titre;
  FormatEffectif format;
  const TablesCroisees& tables;
  std::size_t lignes;
  std::size_t colonnes;
  int supplement;  // columns that the cells are wider than usual, for counts and contributions that want them

  Grille(const TableauTitre& t, const TablesCroisees& cellules, FormatEffectif f)
      : titre(t),
        format(f),
        tables(cellules),
        lignes(t.tableau.lignes.size()),
        colonnes(t.tableau.colonnes.size()),
        supplement(std::max(
            ColonnesEnPlus(t.tableau.compte.marges.total, f == FormatEffectif::Pondere ? 1 : 0, LargeurUsuelle(f)),
            ColonnesEnPlus(t.tableau.khi2, 0, kLargeurContribution))) {}

  std::string Effectif(double effectif) const { return TexteEffectif(effectif, format, supplement); }
  std::string Contribution(double contribution) const { return TexteContribution(contribution, supplement); }
  int LargeurCellule() const { return kLargeurCellule + supplement; }

  std::string_view IntituleLigne(std::size_t i) const {
    return i < lignes ? std::string_view(titre.IntituleLigne(titre.tableau.lignes[i])) : kTotalEnColonne;
  }
  std::string_view IntituleColonne(std::size_t j) const {
    return j < colonnes ? std::string_view(titre.IntituleColonne(titre.tableau.colonnes[j])) : kTotalEnLigne;
  }
};

// Count and row percentage.
std::string PremiereMoitie(const Grille& grille, std::size_t i, std::size_t j) {
  const Cellule& pourcentage = grille.tables.pourcentages.rangees[i].cellules[j];
  return grille.Effectif(*grille.tables.effectifs.rangees[i].cellules[j].valeur) +
         (pourcentage.decimales > 0 ? TextePourcentage(*pourcentage.valeur) : NombreFixe(*pourcentage.valeur, 5, 0));
}

// Contribution to the chi-square and local PEM, with the sign that closes the cell.
std::string SecondeMoitie(const Grille& grille, std::size_t i, std::size_t j) {
  const Cellule& attraction = grille.tables.attractions.rangees[i].cellules[j];
  std::string texte = grille.Contribution(*grille.tables.contributions.rangees[i].cellules[j].valeur);
  texte += TexteEnColonne(attraction, kLargeurAttraction);
  return texte + (attraction.marque.empty() ? "|" : attraction.marque);
}

// Ranks from `premier` to before `fin`.
struct Tranche {
  std::size_t premier;
  std::size_t fin;
};

void EcrireFilet(Rapport& rapport, const Grille& grille, const Tranche& colonnes) {
  const std::string morceau = std::string(static_cast<std::size_t>(grille.LargeurCellule()), '-') + "+";
  rapport.Suite({"+", std::string(kLargeurCellule, '-'), "+"});
  for (std::size_t j = colonnes.premier; j < colonnes.fin; ++j) rapport.Suite(morceau);
  rapport.Ligne();
}

void EcrireEnTeteDePage(Rapport& rapport, const Grille& grille, const Tranche& colonnes) {
  EcrireFilet(rapport, grille, colonnes);
  rapport.Suite("|N=    %Ligne|");
  for (std::size_t j = colonnes.premier; j < colonnes.fin; ++j)
    rapport.Suite({CadreGauche(PremiereLigne(grille.IntituleColonne(j)), grille.LargeurCellule()), "|"});
  rapport.Ligne();
  rapport.Suite("|Khi2 %Attrac|");
  for (std::size_t j = colonnes.premier; j < colonnes.fin; ++j)
    rapport.Suite({CadreGauche(SecondeLigne(grille.IntituleColonne(j)), grille.LargeurCellule()), "|"});
  rapport.Ligne();
  EcrireFilet(rapport, grille, colonnes);
}

void EcrirePage(Rapport& rapport, const Grille& grille, const Tranche& lignes, const Tranche& colonnes) {
  EcrireEnTeteDePage(rapport, grille, colonnes);
  for (std::size_t i = lignes.premier; i < lignes.fin; ++i) {
    rapport.Suite({"|", CadreGauche(PremiereLigne(grille.IntituleLigne(i)), kLargeurCellule), "|"});
    for (std::size_t j = colonnes.premier; j < colonnes.fin; ++j) rapport.Suite({PremiereMoitie(grille, i, j), "|"});
    rapport.Ligne();
    rapport.Suite({"|", CadreGauche(SecondeLigne(grille.IntituleLigne(i)), kLargeurCellule), "|"});
    for (std::size_t j = colonnes.premier; j < colonnes.fin; ++j) rapport.Suite(SecondeMoitie(grille, i, j));
    rapport.Ligne();
    EcrireFilet(rapport, grille, colonnes);
  }
  for (int k = 0; k < 3; ++k) rapport.Ligne();
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
  const Grille grille(titre, tables, format);
  const auto parPageLignes = static_cast<std::size_t>(options.lignesParPage);
  const auto parPageColonnes = static_cast<std::size_t>(options.colonnesParPage);
  for (std::size_t i = 0; i <= grille.lignes; i += parPageLignes)
    for (std::size_t j = 0; j <= grille.colonnes; j += parPageColonnes)
      EcrirePage(rapport, grille, {i, std::min(i + parPageLignes, grille.lignes + 1)},
                 {j, std::min(j + parPageColonnes, grille.colonnes + 1)});
  rapport.Ligne();
}

}  // namespace quelvar::crosstab
