// ModifMod: the active or supplementary status and the labels of the modalities of an existing .MOD.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/programme/programme.h"

namespace quelvar::modalities {

// What the form works on. Without a list, the lines of `message` tell why.
struct EtatModifMod {
  std::vector<std::string> message;
  std::vector<std::string> textes;  // as core/listemod has them
};

EtatModifMod ChargerModifMod(const Contexte& contexte);

// A click in ListSuppl: the supplementary becomes active and back; name and label stay.
void BasculerStatut(std::string& texte);
// The label as typed, from column 8 on.
void PoserIntitule(std::string& texte, std::string_view intitule);
// The line that follows, the first one behind the last.
std::size_t LigneSuivante(std::size_t ligne, std::size_t lignes);

// Writes the list with the marks " S " and "   " only; every other line of the file stays.
Fin EnregistrerModifMod(const Contexte& contexte, const std::vector<std::string>& textes);
// Leaves without saving: the report says so. Also for NomQuest and NomeMod.
Fin AbandonnerEdition(const Contexte& contexte);

// The same without a form.
struct OptionsModifMod {
  struct Action {
    enum class Genre { Active, Supplementaire, Intitule };
    Genre genre;
    std::string nom;  // of a modality, or of a question for the status of all its modalities
    std::string intitule = {};
  };
  std::vector<Action> actions = {};  // in their order
};
Fin ModifierModalites(const Contexte& contexte, const OptionsModifMod& options);

}  // namespace quelvar::modalities
