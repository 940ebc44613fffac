// The tables of a report whose rows follow each other: a title, cells each in the place of its column, a label. Places
// are minima: a column whose values need more widens as a whole where its place says so, and its heading moves along.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/programme/rapport.h"
#include "core/resultats/deuxlignes.h"
#include "core/resultats/tableau.h"

namespace quelvar {

// What a column does for a value that its place does not hold.
enum class Elargissement : std::uint8_t {
  Aucun,             // this row alone shifts: for places that other programs read
  Entier,            // the same for a number that is always whole, which no "$" marks
  DerriereUnTexte,   // the column widens until the value fits
  DerriereUnNombre,  // and keeps one blank before it
};

// How the heading shows the title of a column: as it stands, or cut and padded to the columns before the point, or to
// columns of its own.
enum class TitreDeColonne : std::uint8_t { TelQuel, AGauche, ADroite };

struct PlaceEnRangee {
  std::string_view avant = {};  // stands in front of the place in every row
  int entiers = 0;  // columns of the sign and the digits before the point; of the text of a cell without value
  Elargissement elargissement = Elargissement::Aucun;
  int enPlus = 0;  // columns beyond those, which a number of the table wants: its heading moves along
  TitreDeColonne titre = TitreDeColonne::TelQuel;
  int colonnesDuTitre = 0;              // of a title that is cut and padded; 0: those before the point
  std::string_view avantTitre = {};     // stands in front of the title in the heading
  std::string_view derriereTitre = {};  // and behind it
};

struct FormeEnRangees {
  int titre = 0;                           // columns of the title, cut and padded; 0: as it stands
  std::vector<PlaceEnRangee> places = {};  // one a column; the last one serves the columns that follow too
  std::string_view avantIntitule = {};     // in front of the label; it ends the rows without label as well
  int intitule = 0;                        // columns that the label is set to the right of; 0: as it stands
  std::size_t parLigne = 1;                // rows that one line holds
  int avantLesTitres = 0;                  // blanks in front of the lines above the table
  FormeADeuxLignes tete = {};              // of a heading whose names are broken over two lines
};

// The lines above the table, the heading if there is one (the corner, then the titles of the columns, each moved by
// what its column has widened; over two lines in a form that has such places), and the rows. A cell without a value
// shows its mark as a text: cut and padded to its place, or as it stands in a place of no columns. A row without title,
// cells and label is an empty line. Raises kArgumentIncorrect or kDepassementCapacite for a value that is not finite.
void ImprimerRangees(Rapport& rapport, const TableauEdite& tableau, const FormeEnRangees& forme);

// One row as it would stand in a table of its own: a sentence with figures, or the title of a table.
std::string TexteDeRangee(const Rangee& rangee, const FormeEnRangees& forme);

// A list of figures: rows of one cell, each in a place of its own; the last place serves the rows that follow too.
void ImprimerListe(Rapport& rapport, std::span<const Rangee> rangees, const std::vector<PlaceEnRangee>& places);

// The column of a table by its place and what was seen of its cells, which may mix decimals.
class ColonneEnRangees {
 public:
  explicit ColonneEnRangees(const PlaceEnRangee& place) : place_(place), entiers_(place.entiers + place.enPlus) {}

  void Voir(const Cellule& cellule);
  void Ecrire(std::string& ligne, const Cellule& cellule) const;
  void EcrireTitre(std::string& ligne, std::string_view titre) const;
  // Columns beyond those of the place before the point.
  int EnPlus() const { return entiers_ - place_.entiers; }

 private:
  bool Elargit() const;
  void EcrireValeur(std::string& ligne, double valeur, int decimales) const;

  PlaceEnRangee place_;
  int entiers_;
};

// The same, row by row, for tables that are too large to be held as cells, and for tables that follow each other in the
// same places. Columns that widen must have seen their rows before the first is printed.
class ImprimeurDeRangees {
 public:
  ImprimeurDeRangees(Rapport& rapport, const FormeEnRangees& forme, std::size_t colonnes);

  void Voir(const Rangee& rangee);
  // The lines above the table, and the heading of its columns, which may be fewer than those of the driver.
  void Tete(const TableauEdite& tableau);
  void Imprimer(const Rangee& rangee);
  // Ends a line that would hold more rows.
  void Finir();

 private:
  void TeteADeuxLignes(const TableauEdite& tableau);

  Rapport& rapport_;
  const FormeEnRangees& forme_;
  std::vector<ColonneEnRangees> colonnes_;
  std::string ligne_;
  std::size_t surLaLigne_ = 0;  // rows that it holds
};

}  // namespace quelvar
