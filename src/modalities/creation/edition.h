// Prints the choice that a run of Posmod starts from: questions, counts of modalities, options.
#pragma once

#include <cstdint>

#include "core/programme/programme.h"
#include "modalities/creation/posmod.h"

namespace quelvar::modalities {

struct NombresDeModalites {
  std::int64_t actives = 0;
  std::int64_t supplementaires = 0;
};

// `ancienMod`: there is an earlier .MOD, of which the options say what becomes.
void ImprimerChoix(const FichierPos& pos, const ChoixQuestions& choix, const NombresDeModalites& nombres,
                   const OptionsPosmod& options, bool ancienMod, Rapport& rapport, const Dialogue& dialogue);

}  // namespace quelvar::modalities
