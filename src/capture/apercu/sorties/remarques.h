// What an import has to say of a table besides its account: what stops it, what was left out or changed. Lines of the
// code page, that whoever runs it prints.
#pragma once

#include <string>
#include <vector>

#include "capture/apercu/sorties/ecriture.h"
#include "capture/apercu/sorties/modalites.h"
#include "capture/apercu/sorties/plan.h"
#include "core/programme/programme.h"

namespace quelvar::capture {

// "3  Age", with the bare number of a column of the table given by its index.
std::string NumeroEtNom(std::size_t colonne, const FaitsDeColonne& faits);

// Numbers that could be read otherwise, empty and short rows, foreign characters; under these choices, numbers below 0
// that become codes, which count as 0, and texts that are nearly written alike.
std::vector<std::string> RemarquesDeTable(const FaitsDeTable& faits, const std::vector<ChoixDeColonne>& choix);
// What the files made could not hold, and where to find what is not in .DAT.
std::vector<std::string> RemarquesDeSorties(const Contexte& contexte, const PlanDImport& plan, const Bilan& bilan,
                                            const IntitulesPerdus& perdus);

// What stops the import whatever is chosen: rows with cells behind the titles, a quote that nothing closes.
std::vector<std::string> RefusDeTable(const FaitsDeTable& faits);
// Every cell that stops the import, with column, line and value, column by column.
std::vector<std::string> RefusDesCellules(const Bilan& bilan, const FaitsDeTable& faits,
                                          const std::vector<ChoixDeColonne>& choix);

}  // namespace quelvar::capture
