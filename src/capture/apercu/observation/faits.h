// What the columns of a table hold, from one look at its cells.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "capture/apercu/octets/cellule.h"
#include "capture/apercu/octets/lecture.h"
#include "core/enquete/posfile.h"

namespace quelvar::capture {

enum class Contenu {
  Vide,           // no cell is filled
  Numero,         // number of the individual
  Codes,          // whole numbers of at most three digits
  Nombres,        // numbers with decimals, or beyond three digits
  Textes,         // a short list of texts
  TextesLongs,    // more than kTextesCourts different texts, or one beyond kLongueurCourte characters
  TextesUniques,  // texts that are all different
  Listes,         // several answers in a cell ("a;c")
  Dates,
  Melange,  // codes or numbers among which some cells are none: `fautives`
};

inline constexpr std::size_t kTextesCourts = 30;       // a longer list is no closed question
inline constexpr std::size_t kLongueurCourte = 40;     // a longer answer was written, not chosen
inline constexpr int kPlusGrandCode = kCodeMaxL3;      // three digits, the widest field of a question of codes
inline constexpr std::size_t kFautivesGardees = 1000;  // faulty cells kept for one column

struct CelluleFautive {
  std::int64_t ligne = 0;  // of the file, titles included, from 1
  std::string valeur;      // as it stands
};

struct ValeurComptee {
  std::string valeur;
  std::int64_t effectif = 0;
};

// Texts that differ in the file and would be the same in the code page.
struct TexteConfondu {
  std::string texte;
  std::vector<std::int64_t> lignes;  // one for each of them
};

struct FaitsDeColonne {
  std::string intitule;  // cleaned: no tags, no outer blanks; empty when the column has none
  Contenu contenu = Contenu::Vide;
  std::int64_t remplies = 0;
  std::int64_t vides = 0;
  std::int64_t differentes = 0;  // different values; beyond kCondensesAuPlus no more are counted
  std::int64_t fautes = 0;       // faulty cells; the first ones are in `fautives`
  std::vector<CelluleFautive> fautives;
  // All different cells, numbers among them, in alphabetic order (numbers by size first); empty beyond kValeursGardees.
  std::vector<ValeurComptee> valeurs;
  std::vector<ValeurComptee> elements;   // of lists, in alphabetic order
  char liste = '\0';                     // sign between the answers of a cell
  SignesDeNombres signes;                // of its numbers
  std::int64_t enMilliers = 0;           // numbers like "3,400" that these read as thousands
  std::int64_t douteuses = 0;            // numbers like "3,400" read as decimals although nothing shows that they are
  std::string exemple;                   // one of either
  std::vector<TexteConfondu> confondus;  // of its cells, or of their answers
  std::int64_t habillees = 0;            // cells written ="01" or '01
  std::string exempleHabille;
  int decimales = 0;                // most digits behind their decimal sign
  double minimum = 0, maximum = 0;  // of its numbers
  std::int64_t negatives = 0;       // numbers below 0
  std::size_t largeur = 0;          // of the longest cell
  std::size_t largeurNombre = 0;    // of the longest number, written with a decimal point and no groups
  std::int64_t avecDecimales = 0;   // numbers with a decimal sign
  std::int64_t enEntiers = 0;       // codes written as "1.0"
  std::int64_t nonNumeriques = 0;   // filled cells that are no numbers
  std::int64_t longues = 0;         // texts beyond kLongueurCourte characters
  std::int64_t nonReponses = 0;     // cells "nr", as the export writes the code 0
  bool decimaleDonnee = false;      // the user has laid down the decimal sign
};
inline constexpr std::size_t kValeursGardees = kPlusGrandCode + 1;  // as many as codes, the code 0 among them
inline constexpr std::string_view kTitreDeColonne = "Colonne ";     // and its number, in a table without titles

// A row that has more cells, or fewer, than there are titles.
struct LigneIrreguliere {
  std::int64_t ligne = 0;
  std::size_t cellules = 0;
};

struct FaitsDeTable {
  std::int64_t individus = 0;    // rows that hold something, without the titles
  std::int64_t lignesVides = 0;  // rows that hold nothing, blank lines at the end of the file left out
  std::vector<FaitsDeColonne> colonnes;
  std::int64_t courtes = 0, longues = 0;  // irregular rows; the first ones follow
  std::vector<LigneIrreguliere> irregulieres;
  std::size_t cellulesPartout = 0;  // cells of every row, when all are short by as many; else 0
  std::int64_t etrangers = 0;       // characters that the code page has not, shown as "?"
  std::int64_t ligneEtrangere = 0;
  std::int64_t guillemetSansFin = 0;  // line of a quote that nothing closes; 0 without any
};

// Called now and then with the bytes read; false stops the reading.
using Suivi = std::function<bool(std::uintmax_t octets)>;

class TraceDeCellules;

// The facts over the whole file; nothing when `suivi` stopped it. `trace`, if any, gets its rows. Raises
// what LecteurDeRangees raises, and sentences: kIncompatibiliteType for a file of titles only, kDepassementCapacite for
// a row of too many cells; with the line where there is one.
std::optional<FaitsDeTable> ExaminerTable(const Chemin& source, const Lecture& lecture, const Suivi& suivi = {},
                                          TraceDeCellules* trace = nullptr);

// "codes", "liste courte de textes"... as the preview shows it (code page).
std::string_view NomContenu(Contenu contenu);

}  // namespace quelvar::capture
