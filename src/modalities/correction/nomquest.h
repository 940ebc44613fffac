// NomQuest: the long names of the questions, between the "$" signs of their lines in the .POS.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/options/dites.h"
#include "core/programme/programme.h"

namespace quelvar::modalities {

struct NomDeQuestion {
  std::string nom;  // columns 1-3
  std::string intitule;
  bool modifie = false;
};

// What the form works on. Without a list, the lines of `message` tell why.
struct EtatNomQuest {
  std::vector<std::string> message;
  std::vector<NomDeQuestion> questions;
};

EtatNomQuest ChargerNomQuest(const Contexte& contexte);

// The line of a question in ListRecap.
std::string TexteDeRecapitulatif(const NomDeQuestion& question);
inline constexpr std::size_t kLongueurDeNomMaximum = 30;
inline constexpr std::string_view kNomTropLong = "max=30 caractères"_w;
inline constexpr std::string_view kIntitulesSauvegardes = "Les intitulés des questions ont été sauvegardés"_w;

// Stores a name; returns why it is refused (more than 30 characters, a "$"), empty when it is stored.
std::string_view NommerQuestion(NomDeQuestion& question, std::string_view intitule);

// A question line with its name between "$" signs: in place of the one there, else behind the line. A line with one "$"
// keeps what follows it.
std::string LigneAvecIntitule(std::string_view ligne, std::string_view intitule);

// Writes the modified names into the .POS as it is by then; every other text of the file stays. Raises
// kFichierIntrouvable without it.
void SauverNomQuest(const Contexte& contexte, const std::vector<NomDeQuestion>& questions);
// The same at the end of the form.
Fin EnregistrerNomQuest(const Contexte& contexte, const std::vector<NomDeQuestion>& questions);

// The same without a form.
struct OptionsNomQuest {
  std::vector<std::pair<std::string, std::string>> intitules = {};  // question, name

  bool operator==(const OptionsNomQuest&) const = default;
};
// What has to be asked of the questions as they were opened to make of them what the form would save; the reason when
// the name of one of them is that of another too.
OptionsDites<OptionsNomQuest> OptionsDeNomQuest(const std::vector<NomDeQuestion>& ouvertes,
                                                const std::vector<NomDeQuestion>& questions);
Fin NommerQuestions(const Contexte& contexte, const OptionsNomQuest& options);

}  // namespace quelvar::modalities
