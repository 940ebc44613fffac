// Reads the survey that the crosstabs keep.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/enquete/posfile.h"
#include "core/programme/programme.h"
#include "crosstab/enquete/questions.h"

namespace quelvar::crosstab {

struct FichiersCroise {
  std::string nomDonnees;
  std::string nomPos;
  std::optional<Chemin> donnees;
  std::optional<Chemin> pos;
};

// Finds them; `fichierDonnees` stands for the .DAT of the generic unless it is empty.
FichiersCroise TrouverFichiers(const Contexte& contexte, std::string_view fichierDonnees);

// The survey of N individuals behind its question file, with codes up to the ceiling; only the progress of the reading
// is shown. Raises kArgumentIncorrect with the question, kDepassementCapacite, kMemoireInsuffisante,
// kFinDeFichierDepassee and the failures of LecteurLignes.
EnqueteCroisee LireEnquete(const Contexte& contexte, const Chemin& donnees, const FichierPos& pos,
                           std::int64_t individus, int plafond);

}  // namespace quelvar::crosstab
