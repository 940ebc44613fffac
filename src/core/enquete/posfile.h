// The position file .POS: title, size line, questions, and where the lines behind the questions start.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/enquete/colonnes.h"
#include "core/fichiers/fichiers.h"
#include "core/panne/erreur.h"

namespace quelvar {

// The size line (line 2).
struct LigneTaille {
  std::string texte;                  // the whole line, for the keywords of the recoding
  std::int64_t individus = 0;         // constructed count N; 0 when unknown
  std::int64_t avantPonderation = 0;  // count M between the parentheses; 0 without them
  bool parenthesesFautives = false;   // a "(" without a ")" behind it
};

// The code-max that "L3" stands for: codes of three columns.
inline constexpr int kCodeMaxL3 = 999;

enum class Statut { Aucun, Actif, Supplementaire };

struct Question {
  std::string nom;            // kLargeurDeQuestion columns
  int position = 0;           // first column in a data line, from 1
  int codeMax = 0;            // kCodeMaxL3 for "L3"
  int largeur = 1;            // columns of the field, from the code-max
  char type = ' ';            // column 10 as it stands
  bool alphabetique = false;  // "A" or "a" in column 10
  Statut statut = Statut::Aucun;
  std::string intitule;         // between the first two "$"; empty without them
  bool intituleOuvert = false;  // one "$" only
  std::string regle;            // free area without label and mark, trimmed on both sides
};

// A .POS shorter than this, in bytes, counts as absent where a program makes one.
inline constexpr std::uintmax_t kPosVide = 3;

// Values above their code-max before a count stops, unless the user says otherwise: more of them are no slips.
inline constexpr int kDepassementsAuPlus = 50;

// What ended the list of questions.
enum class FinDeListe { FinDeFichier, LigneBlanche, Asterisques, Dollars };

struct FichierPos {
  std::string nom;  // without directory, for what is found in it later
  std::string titre;
  LigneTaille taille;
  std::vector<Question> questions;
  FinDeListe fin = FinDeListe::FinDeFichier;
  std::vector<std::string> lignes;  // every line of the file as it stands
  std::size_t premiereApres = 0;    // index in `lignes` of the end mark; its size at the end of the file
};

// Columns of a field: 3 for kCodeMaxL3, 2 from 10 on, else 1.
constexpr int LargeurDe(int codeMax) { return codeMax == kCodeMaxL3 ? 3 : codeMax >= 10 ? 2 : 1; }

// Columns 8-9 of a question line for a numeric code-max: right-aligned, "L3" from 100 on.
std::string TexteCodeMax(int codeMax);

// "&ACT&", "&SUP&", or nothing.
std::string_view MarqueDe(Statut statut);

// The first code that two digits write, one character being no longer enough: 1 to 9, then A to Z for 10 to 35.
inline constexpr int kPremierCodeDouble = 36;
// Last code that has a name.
inline constexpr int kDernierCodeNomme = 99;

// Printed form of a code from 1 to kDernierCodeNomme: "1" to "9", "A" to "Z", then two digits; "0" for the
// non-response. Raises kIndiceHorsSelection for any other.
std::string_view CodeCaractere(int code);

// Line 2 of the file. Raises kDepassementCapacite for a count beyond 64 bits.
LigneTaille LireLigneTaille(std::string_view ligne);
// A line of the list. Raises kDepassementCapacite, with its column, when position or code-max do not fit 16 bits.
Question LireLigneQuestion(std::string_view ligne);
// The line of a question: name in 3 columns, position in 4, code-max in 2 as TexteCodeMax has it, and what follows.
std::string LigneDeQuestion(std::string_view nom, std::int64_t position, std::string_view codeMax,
                            std::string_view suite = {});
// The ten columns that lists and reports show of such a line: name and position, a blank, code-max.
std::string LibelleDeQuestion(std::string_view ligne);
// The size line of N individuals; M, those before the weighting, stand between parentheses unless they are 0.
std::string LigneDeTaille(std::int64_t individus, std::int64_t avantPonderation = 0);
// A label between its two signs.
std::string EntreDollars(std::string_view intitule);
// The end of the list of questions that a line is, if it is one.
std::optional<FinDeListe> MarqueDeFin(std::string_view ligne);

// Reads the file; without its questions when the parentheses of line 2 are faulty. Raises kFinDeFichierDepassee for
// less than two lines, kDepassementCapacite, and the failures of LecteurLignes.
FichierPos LirePos(const Chemin& chemin);

// Path of the .POS of that name if it exists and is no shorter than kPosVide. Raises what LongueurFichier raises.
std::optional<Chemin> ChercherPos(const Chemin& repertoire, std::string_view nom);

// The fault of a label without its second "$", as a report tells it; a message box goes on with kCorrigezRelancez.
std::string FauteIntitule(const Question& question);
inline constexpr std::string_view kCorrigezRelancez = ", corrigez et relancez ";

// The line of its file that a question stands in.
Lieu LieuDeLaQuestion(const FichierPos& pos, std::size_t indice);

// The failure (kArgumentIncorrect) of a question whose field no data line can have: its position, in the file, is no
// column. `premiere` is the number that the first question of the file has in the lines of the report.
Erreur ChampImpossible(const FichierPos& pos, std::size_t indice, int premiere = 1);

}  // namespace quelvar
