// Flat sort: counts for every question how many individuals gave each code, and prints one small table a question in
// the report .TAP; on request prepares the .TRG of the triangular graph.
#pragma once

#include <string>

#include "core/enquete/posfile.h"
#include "core/programme/programme.h"
#include "core/resultats/tableau.h"

namespace quelvar::sorts {

// Overflows that the option form allows when it checks them.
inline constexpr int kLimiteDuFormulaire = kDepassementsAuPlus;

struct OptionsTriapl {
  bool reponsesMultiples = false;  // print the cumulation of all questions as multiple responses
  bool triangulaire = false;       // prepare the .TRG
  int limite = 0;                  // overflows of the code-max allowed before the run stops; 0 for no check
  std::string fichierDonnees{};    // other data file; empty for generic .DAT
  bool intitules = true;           // labels from the .MOD
  bool nonReponses = true;         // code 0 counts as a response
  SortieDeTableaux sortie = SortieDeTableaux::Aucune;

  bool operator==(const OptionsTriapl&) const = default;
};

// Runs the flat sort of the generic. Every failure is told in the report.
Fin Triapl(const Contexte& contexte, const OptionsTriapl& options);

}  // namespace quelvar::sorts
