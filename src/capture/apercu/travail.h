// The data of an import as they are written, before anything is told or takes its place.
#pragma once

#include <memory>

#include "capture/apercu/choix/reconnaissance.h"
#include "capture/apercu/sorties/ecriture.h"
#include "capture/apercu/sorties/plan.h"
#include "core/fichiers/jeu.h"

namespace quelvar::capture {

// The outputs of the run, all in one set.
struct SortiesDImport {
  JeuDeFichiers jeu;
  GeneriqueTenu nombres;  // the generic of the numbers, when there are any

  SortiesDImport(const Contexte& contexte, bool avecNombres);
};

struct TravailDImport {
  Reconnaissance table;
  PlanDImport plan;
  Bilan bilan;
  std::unique_ptr<SortiesDImport> sorties;
};

// Reads and writes the data: at one go when the table holds codes only and no hand has chosen otherwise, else after a
// first reading. `accepter` is asked before anything is written over that the account would not tell; it raises.
// Raises what Reconnaitre, DresserPlan and EcrireTable raise.
TravailDImport Travailler(const Contexte& contexte, const SourceDeTable& source, const OptionsImport& options,
                          const std::function<void(const Reconnaissance&, const PlanDImport&)>& accepter);

}  // namespace quelvar::capture
