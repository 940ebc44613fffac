// What the profile of a modality is computed from: the modality list, and counts from the data or from the Burt table.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/enquete/modfile.h"
#include "core/enquete/nomdemodalite.h"
#include "core/enquete/parametres.h"
#include "core/enquete/posfile.h"
#include "core/programme/programme.h"

namespace quelvar::factor {

// Data, questions, modality list and Burt table of the generic, as far as they are there.
struct FichiersDeProfil {
  std::optional<Chemin> donnees, pos, mod, brt;
};
FichiersDeProfil TrouverFichiers(const Contexte& contexte);
// A sentence on each of those that a profile can't do without; none when it may go on.
std::vector<std::string> PhrasesDesAbsents(const Contexte& contexte, const FichiersDeProfil& fichiers);

// Margins of every modality of the list, and what each chosen one shares with them.
struct ComptesDeProfil {
  double individus = 0;
  std::vector<double> effectifs;              // by modality
  std::vector<std::vector<double>> ensemble;  // by chosen one, then by modality
  std::int64_t laisses = 0;                   // lines of the data past the announced ones
  std::int64_t douteuses = 0;                 // cells read of the Burt table that are cut or no whole number from 0 on
  std::string premiereDouteuse{};             // where the first one stands
  double plusGrandeQuestion = 0;  // answers of the question that has most of them, where N is the first one's
};

// Counts the data, at most the announced individuals, all of them when the size is 0. `codes` has the code of each
// modality. Raises kArgumentIncorrect with the question for a position below 1, and the failures of LecteurLignes.
ComptesDeProfil CompterDonnees(const Chemin& donnees, const FichierPos& pos, const std::vector<CodeDeModalite>& codes,
                               const std::vector<std::size_t>& choisies, const Dialogue& dialogue);

// Whether the rows of a table bear the names of its columns: one that is no Burt table has no profile in it. True for
// rows that are not there. Raises the failures of LecteurLignes.
bool LignesSontLesColonnes(const Chemin& brt, const std::vector<Modalite>& modalites);

// Counts of the Burt table: its diagonal and the rows of the chosen ones. `annonces` is line 2 of the .POS; without it,
// LSUP= of a table with individuals, else the diagonal of the first question. Raises kFinDeFichierDepassee for a table
// that is cut.
ComptesDeProfil LireBurt(const Chemin& brt, const FichierMod& mod, const ParametresMod& parametres,
                         const std::vector<std::size_t>& choisies, double annonces);

}  // namespace quelvar::factor
