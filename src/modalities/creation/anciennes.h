// What a new .MOD takes over from the one before: marks and labels of the modalities that come back, and the lines of
// those that do not.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/fichiers/fichiers.h"
#include "modalities/liste/codes.h"
#include "modalities/liste/modalites.h"

namespace quelvar::modalities {

struct AncienneModalite {
  std::string ligne;  // as it stands in the file
  std::string nom;    // 4 characters, padded on the right
  bool reprise = false;
  CodeLu lu = {};  // what its name stands for
};

// The lines behind the first two, also behind "**". A line without a name, and one of "**", count as taken over. The
// names are read with these questions.
// Raises kFinDeFichierDepassee for less than two lines and the failures of LecteurLignes.
std::vector<AncienneModalite> LireAnciennes(const Chemin& chemin, const FichierPos& pos);

// Gives each modality its mark and label: those of the first old line of its name, which is then taken over, else the
// usual ones. A line that is another question's by its place is not taken; where no line of the name is surely of the
// modality, the first doubtful one is. With `oublier` the old ones are not used, yet their lines count as taken over.
// With `nommer` (no table is made) a non-response gets its label and no mark. Returns the modalities, "AG37 (AGE)",
// that have the mark or the label of a doubtful line.
std::vector<std::string> ReprendreAnciennes(std::vector<ModaliteCreee>& modalites,
                                            std::vector<AncienneModalite>& anciennes, bool oublier, bool nommer);

// Questions of the plan, by their place in it, that have changed sides: every modality, code 0 aside, that the old
// lines know has the other status there. Marks that differ within a question were made by hand, and stay; those that a
// creation gives to a name ending in "0" were not, and neither they nor doubtful lines count.
std::vector<std::size_t> QuestionsPasseesDeLAutreCote(const PlanModalites& plan,
                                                      const std::vector<AncienneModalite>& anciennes);
// Gives the modalities of these questions the marks of the choice in place of the old ones; labels stay.
void MarquerSelonLeChoix(PlanModalites& plan, const std::vector<std::size_t>& questions);

}  // namespace quelvar::modalities
