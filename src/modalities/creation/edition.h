// Prints the choice that a run of Posmod starts from: questions, counts of modalities, options.
#pragma once

#include "core/programme/programme.h"
#include "modalities/creation/posmod.h"

namespace quelvar::modalities {

// `ancienMod`: there is an earlier .MOD, of which the options say what becomes.
void ImprimerChoix(const FichierPos& pos, const ChoixQuestions& choix, const OptionsPosmod& options, bool ancienMod,
                   Rapport& rapport, const Dialogue& dialogue);

}  // namespace quelvar::modalities
