// ProfilMod: the profile of chosen modalities against all others, from the data or from the Burt table.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/programme/programme.h"
#include "factor/profil/profil.h"

namespace quelvar::factor {

struct OptionsProfil {
  bool detail = false;  // the columns of the chi-square
  bool nonTri = false;  // the order of the file
  std::optional<std::vector<std::string>>
      modalites{};  // kept on line 2 of the .MOD before the run; what it holds without them
  std::vector<std::pair<std::string, std::string>> intitules{};  // name and new label, written with them
  std::string fichier{};                                         // picture of the first profile, in SVG; empty for none

  bool operator==(const OptionsProfil&) const = default;
};

// Report: generic and ".PR2".
Fin ProfilMod(const Contexte& contexte, const OptionsProfil& options);
// The same; `profils` receives what is printed, for the picture.
Fin DresserProfils(const Contexte& contexte, const OptionsProfil& options, std::vector<ProfilDeModalite>& profils);

// What the form works on; without a list, the lines of `message` tell why. Whatever keeps the .MOD from being read is
// one sentence there: of a file that exists, the screen gets the `cause` and its place too.
struct EtatProfil {
  std::vector<std::string> message;
  std::string cause{};
  std::vector<std::string> textes;  // as core/enquete/listemod has them
  std::string remarque{};           // on a list that is there; empty for none
};
EtatProfil ChargerProfil(const Contexte& contexte);

// Writes the choice, marks and labels to the .MOD; raises the failures of Remplacement.
void EnregistrerChoix(const Contexte& contexte, const std::vector<std::string>& textes,
                      const std::vector<std::string>& noms);

// The button of the form: the same, then the run on what was written.
Fin EnregistrerEtProfiler(const Contexte& contexte, const std::vector<std::string>& textes,
                          const std::vector<std::string>& noms, const OptionsProfil& options,
                          std::vector<ProfilDeModalite>& profils);

// The form left without a run: the report says so.
Fin AbandonnerProfil(const Contexte& contexte);

}  // namespace quelvar::factor
