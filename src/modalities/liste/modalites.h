// The modalities of a choice of questions: their order, names and types.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "modalities/liste/choix.h"

namespace quelvar::modalities {

struct QuestionChoisie {
  std::size_t rang = 0;        // in the .POS, from 0
  std::uint32_t premiere = 0;  // index of its first modality, from 0
  int codeMax = 0;
};

struct ModaliteCreee {
  std::string nom;              // 4 characters
  bool supplementaire = false;  // of a supplementary question
  std::string marque;           // 3 characters
  std::string intitule;         // at most 25 characters
  std::string question = {};    // its name, of 3 characters
  int code = 0;
};

// The questions in the order in which they are read, active ones first, and the modalities that they take.
struct PlanModalites {
  std::vector<QuestionChoisie> questions;
  std::vector<ModaliteCreee> modalites;
  bool codesZero = true;
};

// Lays out and names the modalities; marks and labels stay empty. Raises kIndiceHorsSelection for a code-max above 99
// or below 0.
PlanModalites PlanifierModalites(const FichierPos& pos, const ChoixQuestions& choix, bool codesZero);

// What is told of a name that no modality has.
std::string PhraseInconnue(std::string_view nom);

// True for the modalities that are supplementary, or called a non-response, unless an earlier .MOD says otherwise: code
// 0, every supplementary one, and any name that ends in "0".
bool EstEcartee(const ModaliteCreee& modalite);

}  // namespace quelvar::modalities
