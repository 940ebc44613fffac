// The one way a failure travels: an exception that carries the number of the error table.
#pragma once

#include <exception>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "core/texte/texte.h"

namespace quelvar {

// Numbers of the errors that a program may meet; TexteErreur gives their words.
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

// Words of an error number, in the code page; empty for a number that the table does not hold.
std::string_view TexteErreur(int numero);

class Erreur;
// The sentence of the failure, or the words of its number.
std::string_view TexteErreur(const Erreur& erreur);

// The question whose field could not be cut, told by the report of error 5.
struct RepereQuestion {
  int numero = 0;  // rank in the list of questions, from 1
  std::string nom;
  int position = 0;
  int codeMax = 0;
};

class Erreur : public std::exception {
 public:
  explicit Erreur(int numero) : numero_(numero) {}
  // A failure that has a sentence of its own, in the code page: it stands in place of the words of the number.
  Erreur(int numero, std::string phrase) : numero_(numero), phrase_(std::move(phrase)) {}
  Erreur(int numero, RepereQuestion question) : numero_(numero), question_(std::move(question)) {}

  int Numero() const { return numero_; }
  const std::string& Phrase() const { return phrase_; }
  const std::optional<RepereQuestion>& Question() const { return question_; }
  const char* what() const noexcept override { return "quelvar::Erreur"; }

 private:
  int numero_;
  std::string phrase_;
  std::optional<RepereQuestion> question_;
};

// The number that stands for a failure of the operating system.
int NumeroDErrno(int codeErrno);

}  // namespace quelvar
