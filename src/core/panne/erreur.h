// The one way a failure travels: an exception that carries the number of the error table, and where it was met.
#pragma once

#include <cstdint>
#include <exception>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "core/texte/texte.h"

namespace quelvar {

// Numbers of the errors that a program may meet; TexteErreur gives their words. Contracts that say "a failure of
// reading" mean kFichierIntrouvable, kErreurPeripherique, kPermissionRefusee or kAccesFichier; "a failure of writing"
// means kDisquePlein, kErreurPeripherique, kPermissionRefusee, kAccesFichier or kCheminIntrouvable.
enum NumeroErreur : int {
  kArretAnnonce = 0,  // the program stops by its own will and has already told why
  kArgumentIncorrect = 5,
  kDepassementCapacite = 6,
  kMemoireInsuffisante = 7,
  kIndiceHorsSelection = 9,
  kDivisionParZero = 11,
  kIncompatibiliteType = 13,
  kNomFichierIncorrect = 52,
  kFichierIntrouvable = 53,
  kErreurPeripherique = 57,
  kDisquePlein = 61,
  kFinDeFichierDepassee = 62,
  kPermissionRefusee = 70,
  kAccesFichier = 75,
  kCheminIntrouvable = 76,
};

// Words of an error number, in the code page; empty for kArretAnnonce and for a number that the table does not hold.
std::string_view TexteErreur(int numero);

// The question whose field could not be cut, told by the report of kArgumentIncorrect.
struct RepereQuestion {
  int numero = 0;  // rank in the list of questions, from 1
  std::string nom;
  int position = 0;
  int codeMax = 0;
};

// Where in the data a failure was met, as far as its reader knows.
struct Lieu {
  std::string fichier;     // name without directory, in the code page
  std::int64_t ligne = 0;  // from 1; 0 when it is not known
  int colonne = 0;         // from 1; 0 when it is not known
};

// What is wrong in the data, in the code page, and where; a place that nobody knows is empty.
struct FauteSituee {
  std::string phrase;
  Lieu lieu{};
};

class Erreur : public std::exception {
 public:
  explicit Erreur(int numero) : numero_(numero) {}
  // A failure that has a sentence of its own, in the code page: it stands in place of the words of the number.
  Erreur(int numero, std::string phrase) : numero_(numero), phrase_(std::move(phrase)) {}
  Erreur(int numero, RepereQuestion question) : numero_(numero), question_(std::move(question)) {}
  // The stop (kArretAnnonce) for a fault that the report has told in its own words: the screen tells it with its place.
  explicit Erreur(FauteSituee annoncee)
      : numero_(kArretAnnonce), annonce_(std::move(annoncee.phrase)), lieu_(std::move(annoncee.lieu)) {}

  int Numero() const { return numero_; }
  // Empty when the words of the number say all.
  const std::string& Phrase() const { return phrase_; }
  // Nothing but for a field that could not be cut.
  const std::optional<RepereQuestion>& Question() const { return question_; }
  // As far as it is known.
  const Lieu& Ou() const { return lieu_; }
  const char* what() const noexcept override { return "quelvar::Erreur"; }

  // Adds what is not known yet of the place; kArretAnnonce has no place but the one that it was made with: where it is
  // raised is seldom where the fault is.
  Erreur& Situer(const Lieu& lieu);
  // Makes it a fault of ours, with what the library says of it.
  Erreur& Imputer(std::string_view propos);

 private:
  int numero_;
  std::string phrase_;
  std::optional<RepereQuestion> question_;
  std::string annonce_;  // of kArretAnnonce: for the screen only
  Lieu lieu_;
  bool fauteDuProgramme_ = false;  // which nobody can mend in the files
  std::string propos_;             // what the library says of that fault

  friend std::string TexteDuLieu(const Erreur& erreur);
  friend std::string TexteErreur(const Erreur& erreur);
};

// "ENQ.DAT, ligne 12, colonne 5", or that the fault is ours; empty when nothing of it is known.
std::string TexteDuLieu(const Erreur& erreur);
// The sentence of the failure, or the words of its number, and its place behind them. What is known of an announced
// stop is in the words of the fault that it was made with.
std::string TexteErreur(const Erreur& erreur);

// Does the work and returns what it returns; a failure of it gets the place (a Lieu) that `ou` tells.
template <class Travail, class Ou>
decltype(auto) Situer(const Ou& ou, Travail&& travail) {
  try {
    return travail();
  } catch (Erreur& erreur) {
    erreur.Situer(ou());
    throw;
  }
}

// What is being caught, whatever was thrown, as the one failure type: a library that had no memory is
// kMemoireInsuffisante, the system's refusals go by NumeroDErrno, everything else is a fault of ours. To be called in a
// handler.
Erreur ErreurEnCours();

// The number that stands for a failure of the operating system; kAccesFichier for one that has no number of its own.
int NumeroDErrno(int codeErrno);

}  // namespace quelvar
