// One pass over a data file that counts the codes of every question.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "core/enquete/posfile.h"
#include "core/fichiers/fichiers.h"
#include "core/programme/programme.h"

namespace quelvar::sorts {

struct Comptage {
  std::int64_t individus = 0;  // lines read
  // For each question its counts by code, from 0 to its code-max (at least code 0). Values above the code-max and
  // negative ones are counted as 0.
  std::vector<std::vector<std::int64_t>> effectifs;
};

// Told of each value above its code-max: index of the question, number of the line from 1, value.
using SignalerDepassement = std::function<void(std::size_t question, std::int64_t ligne, int valeur)>;

// Counts the codes of at most `maximum` lines. Without `signaler` overflows are silent, and the pass is at its
// fastest. Raises kArgumentIncorrect, with the question, when a field that cannot be cut is met; kDepassementCapacite
// for a value beyond 16 bits; kErreurPeripherique.
Comptage CompterCodes(const Chemin& donnees, const FichierPos& pos, std::int64_t maximum,
                      const SignalerDepassement& signaler, Progression& progression);

}  // namespace quelvar::sorts
