// The pass over the data file: the modalities of each individual go into the Burt table and the logical coding.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "core/fichiers/fichiers.h"
#include "core/programme/dialogue.h"
#include "modalities/creation/burt.h"
#include "modalities/liste/modalites.h"

namespace quelvar::modalities {

// Writes the logical coding, one line an individual.
class CodageLogique {
 public:
  CodageLogique(Ecrivain& fichier, std::size_t modalites, const NomsDIndividus& noms);
  // Raises kArgumentIncorrect when the name is to be taken from a column below 1.
  void Ecrire(std::int64_t numero, std::string_view ligneDeDonnees, std::span<const std::uint32_t> presentes);

 private:
  Ecrivain& fichier_;
  NomsDIndividus noms_;
  std::string codage_;  // short name and one digit a modality
};

// A value above the code-max of its question.
struct Depassement {
  std::string_view question;
  std::int64_t ligne;  // from 1
  int valeur;
};

struct DemandeDePasse {
  Chemin donnees;
  std::int64_t individus = 0;                        // lines that are read at most
  CodageLogique* codage = nullptr;                   // written when there is one
  std::function<void(const Depassement&)> signaler;  // told each value set to 0 for being too large
};

// Counts the individuals into the table; returns how many lines there were, at most `individus`. A value above the
// code-max or below 0 counts as 0. Raises kArgumentIncorrect, with the question, for a position below 1, and the
// failures of the readers.
std::int64_t PasserLesDonnees(const FichierPos& pos, const PlanModalites& plan, const DemandeDePasse& demande,
                              TableBurt& burt, const Dialogue& dialogue);

}  // namespace quelvar::modalities
