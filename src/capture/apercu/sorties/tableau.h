// What is known of the columns of a table, and the codes made of them, as data for whoever prints them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "capture/apercu/choix/reconnaissance.h"
#include "capture/apercu/sorties/ecriture.h"
#include "capture/apercu/sorties/plan.h"
#include "core/resultats/tableau.h"

namespace quelvar::capture {

// A row a column: its number and short name, what it holds, how many different values and empty cells, its title and
// what becomes of it.
TableauEdite TableauDesFaits(const Reconnaissance& table);

// A code made, with the individuals that have it.
struct CodeFait {
  std::string nom;  // of the question
  int code = 0;
  std::string intitule;  // empty for the non-response
  std::int64_t effectif = 0;
};

// The codes that texts and classes of a column of the table (by index) have become; the non-response is among them when
// it was met: texts that count as 0, and empty cells.
std::vector<CodeFait> CodesFaits(std::size_t colonne, const FaitsDeTable& faits, const PlanDImport& plan,
                                 const Bilan& bilan);

}  // namespace quelvar::capture
