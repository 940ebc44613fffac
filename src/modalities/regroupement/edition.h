// What ModifierBurt tells of a grouping: the lines of its report, and the boxes behind it.
#pragma once

#include <cstdint>
#include <string>

#include "modalities/regroupement/table.h"

namespace quelvar::modalities {

// Short and long names of the new column and of the new row.
struct NomsDeGroupe {
  std::string colonne, colonneLongue;
  std::string ligne, ligneLongue;
};

void ImprimerColonnes(Rapport& rapport, const TableAGrouper& table, const PlanDeRegroupement& plan);
void ImprimerLignes(Rapport& rapport, const PlanDeRegroupement& plan, const BilanDeRegroupement& bilan,
                    const NomsDeGroupe& noms);
void ImprimerGroupeDeLignes(Rapport& rapport, const TableAGrouper& table, const PlanDeRegroupement& plan,
                            const BilanDeRegroupement& bilan, const NomsDeGroupe& noms);
void ImprimerFin(const Contexte& contexte, Rapport& rapport, const std::string& nouveau);

// The rows of a Burt table have the names of its columns, whatever name was given to theirs.
void PrevenirDuNomLaisse(const Contexte& contexte, const TableAGrouper& table, const OptionsModifBurt& options,
                         const NomsDeGroupe& noms);
// Rows beyond those that the .MOD announces are kept, and announced by the new one; `rangees` of all.
void PrevenirDesLignesEnPlus(const Contexte& contexte, const TableAGrouper& table, std::int64_t rangees);
void PrevenirDesSupplementairesActives(const Contexte& contexte, const ElementsRendusActifs& rendus);
// The sums take the cells as they read; what is no count among them is told.
void PrevenirDesCellulesDouteuses(const Contexte& contexte, const CellulesDouteuses& douteuses);

}  // namespace quelvar::modalities
