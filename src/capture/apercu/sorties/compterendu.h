// The account of the import of a table: how it was read, what its columns hold, what became of them.
#pragma once

#include <string>
#include <vector>

#include "capture/apercu/choix/reconnaissance.h"
#include "capture/apercu/sorties/ecriture.h"
#include "capture/apercu/sorties/plan.h"
#include "core/programme/rapport.h"

namespace quelvar::capture {

// Lines that tell how the file was read, and what of it is not certain.
void ImprimerLecture(Rapport& rapport, std::string_view fichier, const SourceDeTable& source,
                     const Reconnaissance& table);

// The table of the columns: what they hold, how many different values and empty cells, and what becomes of them.
void ImprimerTableDesColonnes(Rapport& rapport, const Reconnaissance& table);

// What became of each column that is more than codes as they stand, with the codes given to texts and their counts.
void ImprimerDevenir(Rapport& rapport, const std::vector<ChoixDeColonne>& choix, const FaitsDeTable& faits,
                     const PlanDImport& plan, const Bilan& bilan);

}  // namespace quelvar::capture
