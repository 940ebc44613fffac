// Prints the report of a fusion: its files, and what its three ways tell of their lines.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "utilities/fusion/travail.h"

namespace quelvar::utilities {

// The banner and the three names.
void ImprimerTeteDeFusion(Rapport& rapport, const EntreeChoisie& a, const EntreeChoisie& b, std::string_view resultat);

void ImprimerEffectif(Rapport& rapport, const FichierMesure& mesure);
// Files side by side that have not as many lines as each other.
void ImprimerEffectifsInegaux(const TravailDeFusion& travail);
// `a` and `b`: the two identifiers of an individual (rank from 1) that differ.
void ImprimerDifference(Rapport& rapport, std::int64_t individu, std::string_view a, std::string_view b);

// Lines of A with those of B that have their identifiers.
struct BilanAppareillement {
  std::int64_t lignes = 0;
  std::int64_t incomplets = 0;
  bool resteDeA = false;  // lines of A were left when B ended
  bool resteDeB = false;  // the line in hand of B found none of A
  std::string lieu;       // of what is left
};
void ImprimerAppareillement(Rapport& rapport, const BilanAppareillement& bilan);

}  // namespace quelvar::utilities
