// What an import of a dBase file has to tell beside its report: lies of the header, deleted records, conversions.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "capture/compterendu/remarques.h"
#include "capture/dbase/dbf.h"
#include "capture/dbase/questions.h"
#include "capture/dbase/tri.h"
#include "core/enquete/posfile.h"
#include "core/programme/rapport.h"

namespace quelvar::capture {

// What was met while the records went by.
struct PassageDbf {
  std::uint64_t enregistrements = 0;
  std::uint64_t effaces = 0;        // records that bear the mark of a deleted one
  std::uint64_t premierEfface = 0;  // number of the first of them, from 1
  std::uint64_t convertis = 0;      // characters brought from another code page
  std::uint64_t sansEquivalent = 0;
  std::uint64_t coupants = 0;  // bytes that would have cut a line

  void Voir(std::string_view enregistrement) {
    ++enregistrements;
    if (enregistrement.empty() || enregistrement.front() != kEfface) return;
    if (effaces++ == 0) premierEfface = enregistrements;
  }
  void Prendre(const ConvertisseurDbf& convertisseur);
};

// A header whose records can't be found is told in the report and stops the run (kArretAnnonce).
void ExigerEntete(Rapport& rapport, const EnteteDbf& entete, std::string_view nom);
// The same for records that are too short for their fields: no cut of theirs could be trusted.
void ExigerLongueur(Rapport& rapport, const EnteteDbf& entete, std::string_view nom);

void RemarquerDbf(Remarques& remarques, const EnteteDbf& entete, std::uintmax_t taille, const PassageDbf& passage);
// The questions that have their position for a name, and the columns behind the last one that .POS can tell.
void RemarquerQuestions(Remarques& remarques, const std::vector<QuestionImportee>& questions,
                        const std::vector<std::size_t>& renommees, std::size_t longueur);
// The names that had to be replaced, the first of them one by one; none, no remark.
struct Renommage {
  std::string ancien;
  std::string nouveau;
};
void RemarquerRenommages(Remarques& remarques, std::string_view phrase, const std::vector<Renommage>& renommages);
// Fields with values that are no codes: how many, and where the first one stands.
void RemarquerImpropres(Remarques& remarques, const std::vector<QuestionImportee>& questions,
                        const std::vector<TriDeChamp>& tris);
void RemarquerImpossibles(Remarques& remarques, std::int64_t valeurs);

}  // namespace quelvar::capture
