// Prints the preparation of a text: bytes before and after, first lines.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/programme/rapport.h"

namespace quelvar::text {

// The head of a text and the number of its lines.
struct Extrait {
  static constexpr std::size_t kLignesMontrees = 10;

  std::vector<std::string> lignes;
  std::int64_t nombre = 0;

  void Compter(std::string_view ligne) {
    ++nombre;
    if (lignes.size() < kLignesMontrees) lignes.emplace_back(ligne);
  }
};

// The decimal codes of the bytes and their characters, block by block, the former ones above the new ones.
void ImprimerCodes(Rapport& rapport, std::string_view anciens, std::string_view nouveaux);
// `quoi` and `sens`: what the text is to the preparation, and on which side of it.
void ImprimerExtrait(Rapport& rapport, std::string_view quoi, std::string_view nom, const Extrait& extrait,
                     std::string_view sens);

}  // namespace quelvar::text
