// Ecapem: everything that can be said of the association in a counted table, and the PEM links of a table, of a Burt
// table or of cliques.
#pragma once

#include "core/programme/programme.h"
#include "tables/edition.h"
#include "tables/liens/liaisons.h"
#include "tables/nomselements.h"

namespace quelvar::tables {

struct OptionsEcapem {
  bool cliques = false;  // records the cliques of the .NT1 as links, and nothing else
  ModeIntitules intitules = ModeIntitules::Longs;
  SeuilAnnonce seuil = SeuilAnnonce::DixPourCent;
  // "POSI" or "NEGA", as the form shows it: it changes no figure, only positive PEM are recorded.
  bool pemPositifs = true;
  bool diagonalisation = false;  // repeats the analysis on the maximum table
  bool tousTableaux = false;     // prints the tables beyond 30 rows or columns as well
  bool liensLignes = false;      // writes the .PEL, links between rows
  ChoixDeLiens choixLiens = ChoixDeLiens::DeuxMille;

  bool operator==(const OptionsEcapem&) const = default;
};

// Reads the .MOD and .BRT (.POS for a Burt table, .NT1 for cliques), writes the report .PRO and replaces .PEM and .PEL
// once the new links are known; a run that stops before leaves them as they were.
Fin Ecapem(const Contexte& contexte, const OptionsEcapem& options);

}  // namespace quelvar::tables
