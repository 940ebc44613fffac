// The table that ModifierBurt works on: its files, what was marked of it, and the plan of the grouping.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/enquete/modfile.h"
#include "core/enquete/parametres.h"
#include "core/programme/programme.h"
#include "modalities/regroupement/modifburt.h"
#include "modalities/regroupement/regroupement.h"

namespace quelvar::modalities {

struct TableAGrouper {
  FichierMod mod;
  ParametresMod parametres;
  Chemin brt;
  std::optional<Chemin> pos;
};

// The .MOD, the .BRT and, for a Burt table, the .POS; a file that lacks is told and stops the run (kArretAnnonce).
// Raises the failures of the readers, and those of ExigerTableDuMod.
TableAGrouper OuvrirTable(const Contexte& contexte, Rapport& rapport);

// Rows of a .BRT that hold something. Raises the failures of LecteurLignes.
std::int64_t CompterRangees(const Chemin& brt);

// Marks the rows and columns by their names. One that the table has not stops the run (kArretAnnonce); one that several
// have raises a sentence (kIncompatibiliteType).
PlanDeRegroupement Planifier(const Contexte& contexte, Rapport& rapport, const TableAGrouper& table,
                             const OptionsModifBurt& options);

// A group under the name of an element that stays would be one with it for every program that reads the new table:
// told, and the run stops (kArretAnnonce).
void ExigerNomsLibres(const Contexte& contexte, Rapport& rapport, const TableAGrouper& table, OptionsModifBurt options);

}  // namespace quelvar::modalities
