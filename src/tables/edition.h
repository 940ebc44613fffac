// Prints the analysis of a counted table: the first factor, the nine tables, the counts of links, the indices and
// gamma.
#pragma once

#include <span>
#include <string_view>

#include "core/programme/rapport.h"
#include "tables/diagonalisation.h"
#include "tables/gamma.h"
#include "tables/indices.h"

namespace quelvar::tables {

// What the printers need beside the numbers: labels in the order of the rows and columns printed, and the width of a
// cell in the table file.
struct Presentation {
  std::vector<std::string_view> lignes;
  std::vector<std::string_view> colonnes;
  int largeur = 0;
};

// Coordinates in thousandths, and the eigenvalue.
void ImprimerFacteur(Rapport& rapport, const Presentation& presentation, const crosstab::PremierFacteur& facteur);

// The nine tables, an empty line between them.
struct TableauxAEditer {
  const crosstab::TableauCompte& table;
  const Matrice& maximum;
  const crosstab::DetailsDuTableau& details;
  const crosstab::AttractionsDuTableau& attractions;
};
void ImprimerTableaux(Rapport& rapport, const Presentation& presentation, const TableauxAEditer& tableaux,
                      OrdresTries tries);

// The part that the first factor takes of the chi-square of the observed table.
void ImprimerPartDuFacteur(Rapport& rapport, const PartDuFacteur& part, int largeur);

// From "Somme des écarts positifs" to the V of Cramér. Raises kDivisionParZero at the line of an index without value.
void ImprimerIndices(Rapport& rapport, const IndicesGlobaux& indices, OrdresTries tries, int largeur);

// Gamma under the title of its table. Raises kDivisionParZero at the line of gamma when it has no value.
void ImprimerGamma(Rapport& rapport, Texte titre, const Gamma& gamma);

// The sentence on the order of rows and columns that closes the report.
void ImprimerOrdre(Rapport& rapport, OrdresTries tries);

// Chi-square threshold: it chooses the wording of the count of links and filters nothing. The caller "GENDAT" passes
// its name in this place: its runs stop after the tables.
enum class SeuilAnnonce { Aucun, DixPourCent, CinqPourCent, UnPourCent, Gendat };
// Table: the PEM of a rectangular table, whose wording at threshold 0 differs from that of a Burt table.
enum class OrigineDesLiens { Tableau, Burt };
void ImprimerNombreDeLiens(Rapport& rapport, std::size_t liens, SeuilAnnonce seuil, OrigineDesLiens origine);

}  // namespace quelvar::tables
