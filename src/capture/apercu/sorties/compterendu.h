// The account of the import of a table: what was detected, what became of the columns, what was left out or changed.
#pragma once

#include <string>
#include <vector>

#include "capture/apercu/reconnaissance.h"
#include "capture/apercu/sorties/ecriture.h"
#include "capture/apercu/sorties/modalites.h"
#include "capture/apercu/sorties/plan.h"
#include "core/programme/report.h"

namespace quelvar::capture {

// Lines that tell how the file was read, and what of it is not certain.
void EcrireLecture(Rapport& rapport, std::string_view fichier, const SourceDeTable& source,
                   const Reconnaissance& table);

// The table of the columns: what they hold, how many different values and empty cells, and what becomes of them.
void EcrireTableDesColonnes(Rapport& rapport, const Reconnaissance& table);

// What became of each column that is more than codes as they stand, with the codes given to texts and their counts.
void EcrireDevenir(Rapport& rapport, const std::vector<ChoixDeColonne>& choix, const FaitsDeTable& faits,
                   const Plan& plan, const Bilan& bilan);

// Irregular rows, foreign characters, quotes without end.
std::vector<std::string> RemarquesDeTable(const FaitsDeTable& faits);
// Numbers below 0 in columns that become codes, which count as 0.
// Texts whose codes differ although they are nearly written alike, or that are taken together.
std::vector<std::string> RemarquesDEcriture(const std::vector<ChoixDeColonne>& choix, const FaitsDeTable& faits);
std::vector<std::string> RemarquesDesNegatives(const std::vector<ChoixDeColonne>& choix, const FaitsDeTable& faits);
std::vector<std::string> RemarquesDeSorties(const Contexte& contexte, const Plan& plan, const Bilan& bilan,
                                            const IntitulesPerdus& perdus);

// What stops the import whatever is chosen: rows with cells behind the titles, a quote that nothing closes.
std::vector<std::string> RefusDeTable(const FaitsDeTable& faits);
// Every cell that stops the import, with column, line and value.
void EcrireRefus(Rapport& rapport, const Bilan& bilan, const FaitsDeTable& faits,
                 const std::vector<ChoixDeColonne>& choix);

}  // namespace quelvar::capture
