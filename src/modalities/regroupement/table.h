// The table that ModifierBurt works on: its files, what was marked of it, and the plan of the grouping, as data.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/enquete/modfile.h"
#include "core/enquete/parametres.h"
#include "core/fichiers/fichiers.h"
#include "modalities/regroupement/modifburt.h"
#include "modalities/regroupement/regroupement.h"

namespace quelvar::modalities {

struct TableAGrouper {
  FichierMod mod;
  ParametresMod parametres;
  Chemin brt;
  std::optional<Chemin> pos;
};

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

// Fills the plan by the names of the marked rows and columns. Returns what is said of one that the table has not, and
// the plan is not whole; or nothing. One that several have raises a sentence (kIncompatibiliteType).
std::string Planifier(const TableAGrouper& table, const OptionsModifBurt& options, PlanDeRegroupement& plan);

// A group under the name of an element that stays would be one with it for every program that reads the new table:
// returns what is said of it, or nothing.
std::string RefusDuNom(const TableAGrouper& table, OptionsModifBurt options);

}  // namespace quelvar::modalities
