// The rows of a table written under a plan, in one reading: .DAT, the texts, the numbers kept; and every cell that the
// plan has no place for.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "capture/apercu/observation/trace.h"
#include "capture/apercu/octets/rangees.h"
#include "capture/apercu/sorties/plan.h"
#include "core/fichiers/fichiers.h"
#include "core/programme/dialogue.h"

namespace quelvar::capture {

struct CelluleRefusee {
  std::size_t colonne = 0;  // of the table, by index
  std::int64_t ligne = 0;
  std::string valeur;
};

struct Bilan {
  std::int64_t individus = 0;
  std::vector<std::string> premieres;    // lines of .DAT, for the report
  std::vector<CelluleRefusee> refusees;  // the first kRefuseesGardees
  std::int64_t refus = 0;
  std::vector<std::vector<std::int64_t>> effectifs;  // of the codes of each column of .DAT that has labels
  std::int64_t textes = 0;                           // records of .TXT
  std::int64_t etoiles = 0;                          // stars of the texts, made blanks
  std::int64_t sansNombre = 0;                       // individuals left out of the numbers, one at least being empty
  std::vector<std::int64_t> videsParNombre;          // empty cells of each variable kept
  std::size_t finCaracteristiques = 0;               // their last column in .TXT
};
inline constexpr std::size_t kRefuseesGardees = 10000;  // lines of the report, which counts the others

struct SortiesDeTable {
  Ecrivain* dat = nullptr;
  Ecrivain* txt = nullptr;
  Ecrivain* cdg = nullptr;
};

// `avancer` is called for each individual. Raises what LecteurDeRangees raises, and the failures of writing.
Bilan EcrireTable(const Chemin& source, const Lecture& lecture, const PlanDImport& plan, std::int64_t individus,
                  const SortiesDeTable& sorties, const std::function<void()>& avancer);

// The same from what the first look has kept of the cells; nothing for a plan that takes more of them than that, and
// for a table with a cell that is refused: the source tells its line.
std::optional<Bilan> EcrireSelonTrace(const TraceDeCellules& trace, const PlanDImport& plan, std::int64_t individus,
                                      Ecrivain& dat, const std::function<void()>& avancer);

}  // namespace quelvar::capture
