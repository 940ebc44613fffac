// Prints the cutting of a text: its files and options, what was cut, the list of words.
#pragma once

#include <cstdint>
#include <vector>

#include "core/programme/programme.h"
#include "text/decoupage/coupe.h"
#include "text/decoupage/liste.h"
#include "text/decoupage/saisiemot.h"

namespace quelvar::text {

// Words longer than their field that are printed.
inline constexpr std::int64_t kMotsLongsMontres = 10;

void ImprimerNoms(Rapport& rapport, const Contexte& contexte, const OptionsSaisieMot& options);
void ImprimerMode(Rapport& rapport, const OptionsSaisieMot& options);
// A word longer than its field with its characteristics and stimulus; in front of the first one a heading.
void ImprimerMotLong(Rapport& rapport, const Concordance& mot, ModeStimulus mode, bool premier);
void ImprimerBilan(Rapport& rapport, const BilanDeCoupe& bilan);
// The distinct words, and how many there are of `entres`.
void ImprimerMots(Rapport& rapport, const std::vector<MotDistinct>& distincts, std::size_t entres);

}  // namespace quelvar::text
