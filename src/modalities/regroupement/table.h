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

// Rows of the .BRT that hold something, when there are more of them than the .MOD announces; nothing for a Burt table.
// Raises the failures of LecteurLignes.
std::optional<std::int64_t> RangeesEnTrop(const TableAGrouper& table);

// Supplementary elements that a grouping makes active: the mark of grouped columns is lost, and rows go with an active
// one.
struct ElementsRendusActifs {
  std::int64_t colonnes = 0;
  std::int64_t lignes = 0;
};
ElementsRendusActifs CompterRendusActifs(const TableAGrouper& table, const PlanDeRegroupement& plan);

// Marks the rows and columns by their names. One that the table has not stops the run (kArretAnnonce); one that several
// have raises a sentence (kIncompatibiliteType).
PlanDeRegroupement Planifier(const Contexte& contexte, Rapport& rapport, const TableAGrouper& table,
                             const OptionsModifBurt& options);

// A group under the name of an element that stays would be one with it for every program that reads the new table:
// told, and the run stops (kArretAnnonce).
void ExigerNomsLibres(const Contexte& contexte, Rapport& rapport, const TableAGrouper& table, OptionsModifBurt options);

}  // namespace quelvar::modalities
