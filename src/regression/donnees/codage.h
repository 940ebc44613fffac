// The coding of a regression in a .MOD: which modality or variable is explained, which explain, which are references.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "core/enquete/colonnes.h"
#include "core/enquete/modfile.h"

namespace quelvar::regression {

// A line of the .MOD as the regression programs see it.
struct ModaliteCodee {
  std::string nom;       // 4 characters
  std::string intitule;  // trimmed, at most 25 characters; the name when the line has none
  bool reference = false;
  bool aExpliquer = false;
  bool explicative = false;  // marked X

  std::string_view Question() const { return std::string_view(nom).substr(0, kLargeurDeQuestion); }
};

std::vector<ModaliteCodee> LireCodage(const std::vector<Modalite>& modalites);

// A run of modalities with the same first three characters.
struct QuestionCodee {
  std::string nom;
  std::size_t premiere = 0;  // index of its first modality
  std::size_t nombre = 0;
  int references = 0;
  int aExpliquer = 0;
};

std::vector<QuestionCodee> QuestionsDe(const std::vector<ModaliteCodee>& modalites);

}  // namespace quelvar::regression
