// A classification in the report: its steps, and the classes of modalities that a cut leaves.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "core/programme/rapport.h"
#include "core/resultats/tableau.h"
#include "factor/classement/ward.h"

namespace quelvar::factor {

// The two items of each step, elements under these labels, the classes it leaves, its criterion and the share so far.
void ImprimerEtapes(Rapport& rapport, std::span<const EtapeWard> etapes, std::span<const BilanDEtape> bilans,
                    std::span<const std::string> libelles);

// The classes, a row each modality, as recoding orders that the user can copy.
void ImprimerClasses(Rapport& rapport, int niveau, std::span<const std::vector<Rangee>> classes);

}  // namespace quelvar::factor
