// The printers of a two-way table: heading, statistics, and the five editions.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "core/programme/rapport.h"
#include "core/resultats/tableau.h"
#include "crosstab/enquete/questions.h"
#include "crosstab/tableau/tableau.h"

namespace quelvar::crosstab {

// What a user chooses between.
enum class ChoixEdition { Compacte, Etendue, Triangulaire };

enum class Edition {
  TroisBandes = 1,   // compact: counts, percentages and signs under each other
  DeuxBandes = 2,    // compact: counts beside percentages, signs under them
  UneBande = 3,      // compact: the three side by side
  Etendue = 4,       // pages of labelled cells
  Triangulaire = 5,  // as DeuxBandes, for the rows of the triangular graph
};

// Cells of the wide edition on a page, by the size of its characters (points).
struct PageDeCases {
  int lignes = 0;
  int colonnes = 0;
};
inline constexpr int kCaractereUsuel = 10;
inline constexpr PageDeCases kPageUsuelle = {18, 5};
inline constexpr int kPetitCaractere = 8;
inline constexpr PageDeCases kPageEnPetit = {24, 6};

// What was asked of the printing of a launch.
struct OptionsEdition {
  ChoixEdition choix = ChoixEdition::Etendue;
  bool detailKhi2 = false;
  int colonnesParPage = kPageUsuelle.colonnes;
  int lignesParPage = kPageUsuelle.lignes;
};

// The columns of a table decide between the compact editions.
Edition EditionDuTableau(const OptionsEdition& options, int plafondColonnes);

// A table with the words that go with it; labels are by code.
struct TableauTitre {
  const TableauCroise& tableau;
  const QuestionCroisee& ligne;
  const QuestionCroisee& colonne;
  const QuestionCroisee* filtre = nullptr;  // none in a run of two dimensions
  std::string_view modaliteFiltre;
  std::span<const std::string> intitulesLignes;
  std::span<const std::string> intitulesColonnes;

  const std::string& IntituleLigne(std::size_t place) const {
    return intitulesLignes[tableau.compte.rangsLignes[place]];
  }
  const std::string& IntituleColonne(std::size_t place) const {
    return intitulesColonnes[tableau.compte.rangsColonnes[place]];
  }
};

// The same as tables of data: a row a modality and that of the totals, a column a modality and that of the totals.
struct TablesCroisees {
  TableauEdite effectifs;
  TableauEdite pourcentages;   // of the rows, rounded (AuDixieme), marked "+" above the mean of the column and "-" in
                               // the others; behind the column of the totals that of the shares
  TableauEdite contributions;  // to the chi-square; empty in the compact editions
  TableauEdite attractions;    // local PEM, marked "*" for a cell attracted or repelled; empty in the compact editions
};

// The whole of what stands in place of a table of total 0.
void ImprimerTableauVide(Rapport& rapport, const TableauTitre& titre);

// Heading and statistics, up to the empty line before the table itself.
void ImprimerStatistiques(Rapport& rapport, const TableauTitre& titre, bool detailKhi2, bool ordrePem);

// Editions 1, 2, 3 and 5.
void ImprimerEditionCompacte(Rapport& rapport, const TableauTitre& titre, const TablesCroisees& tables, Edition edition,
                             bool ordrePem);

// How a count is written in the wide edition.
enum class FormatEffectif { Entier, GrandEntier, Pondere };
FormatEffectif FormatDesEffectifs(const EnqueteCroisee& enquete);

// Edition 4.
void ImprimerEditionEtendue(Rapport& rapport, const TableauTitre& titre, const TablesCroisees& tables,
                            FormatEffectif format, const OptionsEdition& options);

}  // namespace quelvar::crosstab
