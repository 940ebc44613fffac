// What becomes of each column of an imported table: what is proposed, what can be chosen instead, and how it is told.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "capture/apercu/faits.h"
#include "capture/nomscourts.h"

namespace quelvar::capture {

enum class Genre {
  Codes,         // a question, as it stands
  Textes,        // texts to codes, with their labels
  Classes,       // numbers to classes
  Nombres,       // numbers kept, in the generic followed by N
  Multiple,      // a question of 1 and 0 for each answer
  Longs,         // texts to generic.TXT
  Numero,        // number of the individual: in .DAT, no question
  Ecartee,       // left aside
  Alphabetique,  // a question of texts, which stay as they are
};

enum class Ordre { Alphabetique, Frequence, Donne };

// Equal groups of numbers: no more than there are codes of one character.
inline constexpr int kGroupesAuMoins = 2;
inline constexpr int kGroupesAuPlus = 35;

struct ChoixDeColonne {
  std::string intitule;  // of the column, as FaitsDeColonne has it
  Genre genre = Genre::Ecartee;
  std::string nom;  // three characters, different from all others; empty for what gives no question and no variable

  // Textes; of Codes, the texts that stand for the codes 1, 2...
  Ordre ordre = Ordre::Alphabetique;
  std::vector<std::string> textes;       // Donne: the texts of the codes 1, 2...; those not named come behind
  std::vector<std::string> nonReponses;  // texts that count as code 0; also for Codes, Classes and Nombres

  // Classes: bounds (a class goes from one to below the next), or the number of equal groups when there are none
  std::vector<double> bornes;
  int groupes = 0;

  // Multiple
  char liste = '\0';                  // sign between the answers of one cell; 0 for one answer a column
  std::vector<std::string> reponses;  // of one answer a column: the texts that count as 1

  bool fondus = false;  // Textes: those that differ by case, accents or blanks only have one code

  std::string libelle{};  // of the question, where it is not the title
  // Codes: the code-max that the question has at least; Alphabetique: the columns of its field. 999 for "L3".
  int codeMax = 0;
  bool aDroite = false;  // Alphabetique: the texts end with their field

  bool operator==(const ChoixDeColonne&) const = default;
};

// One for each column: the proposals without any hand. Names are given to those that need one.
std::vector<ChoixDeColonne> ProposerChoix(const std::vector<FaitsDeColonne>& colonnes);
// Another kind for one column, with the parameters that its facts propose.
ChoixDeColonne ProposerGenre(const FaitsDeColonne& colonne, const ChoixDeColonne& actuel, Genre genre);
// The kinds that the content of a column allows, the proposed one first.
std::vector<Genre> GenresPossibles(const FaitsDeColonne& colonne);

// Gives a name to each choice that needs one and has none, or has one that another has too.
void NommerChoix(std::vector<ChoixDeColonne>& choix);

// The names that these kinds get without any hand, by column; empty for those that need none.
std::vector<std::string> NomsProposes(std::vector<ChoixDeColonne> choix, const std::vector<FaitsDeColonne>& colonnes);

// The texts of a column that differ by case, accents or blanks only ("Oui", "OUI"), together; those that count as 0 are
// left out. Of lists their answers.
std::vector<std::vector<ValeurComptee>> EcrituresProches(const ChoixDeColonne& choix, const FaitsDeColonne& colonne);

// Gives their codes to texts in order; with `fondus` a text has the code of the first that is written nearly so.
std::vector<int> CodesDesTextes(const ChoixDeColonne& choix, const std::vector<std::string>& textes);

// Why a cell that the choice cannot take stops the import.
std::string_view RaisonDuRefus(const ChoixDeColonne& choix, const FaitsDeColonne& colonne, std::string_view cellule);

// Texts that could not be told apart once written, where the choice makes codes or answers of them.
std::vector<std::string> RefusDesTextes(const std::vector<ChoixDeColonne>& choix,
                                        const std::vector<FaitsDeColonne>& colonnes);

// What stops the import with these choices, as sentences that name column, line and value; empty when all is well.
std::vector<std::string> RefusDesChoix(const std::vector<ChoixDeColonne>& choix,
                                       const std::vector<FaitsDeColonne>& colonnes);

// What will become of the column, in one French sentence (code page).
std::string Devenir(const ChoixDeColonne& choix, const FaitsDeColonne& colonne);

// True when every column is what the import of codes has always taken: nothing to look at, Enter goes on.
bool ToutEstCodes(const std::vector<ChoixDeColonne>& choix);

// "codes", "textes", "classes", "nombres", "multiple", "longs", "numero", "ecartee", "alphabetique", as .IMC has them.
std::string_view NomGenre(Genre genre);
// The same for the eye: "textes en codes", "nombres en classes"...
std::string_view LibelleGenre(Genre genre);

}  // namespace quelvar::capture
