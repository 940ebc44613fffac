// The model of a tabular analysis: the explained modality and the modalities that explain it, packed in the order of
// the .MOD.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "core/panne/erreur.h"
#include "regression/donnees/codage.h"

namespace quelvar::regression {

struct Modele {
  std::vector<ModaliteCodee> codage;       // every line of the .MOD
  std::vector<QuestionCodee> questions;    // all of them
  std::vector<std::size_t> explicatives;   // indices in `codage`, in order
  std::vector<QuestionCodee> explicantes;  // the explanatory questions; `premiere` counts in `explicatives`
  std::size_t aExpliquer = 0;              // index in `codage`
  std::vector<std::size_t> autres;         // the other modalities of the explained question
  std::string titre;                       // "Modalité à expliquer : " and its label

  std::size_t Explicatives() const { return explicatives.size(); }
  const ModaliteCodee& Explicative(std::size_t k) const { return codage[explicatives[k]]; }
  const ModaliteCodee& Expliquee() const { return codage[aExpliquer]; }
  // Columns of a record: the explanatory modalities, then the pair of the explained one.
  std::size_t LargeurFiche() const { return explicatives.size() + 2; }
};

// The faults of a coding that keep it from being analysed; no lines for a sound one.
struct FautesDuCodage {
  std::vector<std::string> lignes;  // of the report
  FauteSituee premiere{};           // the first one that a question has, with the line of the .MOD that it begins on
};
FautesDuCodage FautesDeCodage(const std::vector<ModaliteCodee>& codage, const std::vector<QuestionCodee>& questions,
                              std::string_view nomMod);

// Packs a coding without faults.
Modele ConstruireModele(std::vector<ModaliteCodee> codage, std::vector<QuestionCodee> questions);

}  // namespace quelvar::regression
