// Profiles of questions: how strongly each question is linked with a chosen one, by the PEM of their crossed table.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "core/calcul/matrice.h"
#include "core/enquete/posfile.h"
#include "core/fichiers/fichiers.h"
#include "core/programme/programme.h"

namespace quelvar::regression {

inline constexpr int kCodeMaxDeProfil = 20;

// The codes of all individuals, one byte each, question by question; 0 for a non-response and for a code that its
// question does not have.
struct Reponses {
  std::vector<std::vector<std::uint8_t>> codes;
  std::int64_t individus = 0;
};

// Reads at most `individus` lines. Raises kArgumentIncorrect, with the question, for a position below 1.
Reponses LireReponses(const Chemin& donnees, const FichierPos& pos, std::int64_t individus, const Dialogue& ecran);

// Table of two questions: codes from 1 to the code-max of each, individuals without one of the two left out.
Matrice CroiserQuestions(const Reponses& reponses, const FichierPos& pos, std::size_t ligne, std::size_t colonne);

// PEM of a table arranged in the order of its first factor, in percent, at most 100; 0 where the margins allow no
// deviation. Raises kDivisionParZero for an empty table. The PEM is the share of the positive deviations from
// independence in those of the table that has the same margins and the largest ones, as the crosstabs compute it.
double PemDeTable(const Matrice& effectifs);

// A question linked with the one of a profile.
struct LienDeProfil {
  std::size_t question = 0;  // rank among all questions
  double pem = 0;            // percent, a whole number
};

struct Profil {
  std::size_t question = 0;
  // By descending PEM, equal ones as the heap sort leaves them; a question whose table is empty is not among them.
  std::vector<LienDeProfil> liens;
  std::vector<double> pems;        // of every question; 0 for itself and for an empty table
  std::vector<std::size_t> vides;  // the questions whose table is empty
};

// The profile of one question. Its PEM are those of the whole file, individuals without an answer left out table by
// table.
Profil CalculerProfil(const Reponses& reponses, const FichierPos& pos, std::size_t question);

}  // namespace quelvar::regression
