// NomeMod: creates the modalities of chosen questions without reading the data, and edits the labels of modalities.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/programme/programme.h"

namespace quelvar::modalities {

struct ModaliteNommee {
  std::string texte;      // name, mark and label, as core/listemod has them
  bool derriere = false;  // stands behind "**"
  bool modifiee = false;  // its label was typed and is in no file yet
};

// What the form works on. Without a list, the lines of `message` tell why.
struct EtatNomeMod {
  std::vector<std::string> message;
  std::vector<ModaliteNommee> modalites;
};

// Option A: the modalities that a creation has just left in the .MOD.
EtatNomeMod LireModalitesCreees(const Contexte& contexte);
// Option B: every modality of the .MOD, those behind "**" too, each name once.
EtatNomeMod LireToutesModalites(const Contexte& contexte);

// The label as typed.
void NommerModalite(ModaliteNommee& modalite, std::string_view intitule);
// Behind the list of the form, what a creation has left; a name that the list has keeps its place and its label.
void AjouterModalites(std::vector<ModaliteNommee>& liste, const std::vector<ModaliteNommee>& creees);
// In place of the list, what the file holds; the labels typed and not saved stay.
void ReprendreModalites(std::vector<ModaliteNommee>& liste, std::vector<ModaliteNommee> lues);

// The text of TitreNbPos, and those of TextMsg.
std::string TexteNombrePrevu(std::int64_t modalites);
std::string GuideDuChoix();
std::string GuideDeLaCreation();
std::string GuideDeLaModification();

// Writes the list into the .MOD, or a new one: the modalities in its order, with their marks, and behind "**" those
// that stood there. What the file holds besides stays as it is.
void SauverNomeMod(const Contexte& contexte, const std::vector<ModaliteNommee>& modalites);
// The runs of the form write one report: the heading of Posmod, what each creation tells, the sentence of the end.
enum class RapportNomeMod { Nouveau, Suite };
// Option A for one choice of questions.
struct PasseNomeMod {
  std::optional<std::vector<std::string>> questions = {};
  bool codesZero = true;

  bool operator==(const PasseNomeMod&) const = default;
};
Fin CreerModalites(const Contexte& contexte, const PasseNomeMod& passe, RapportNomeMod rapport);
// Saves the list at the end of the form.
Fin EnregistrerNomeMod(const Contexte& contexte, const std::vector<ModaliteNommee>& modalites, RapportNomeMod rapport);

// The same without a form: option A once for each pass with questions, else option B; then the labels, all of them or
// none, of modalities that the passes make or that the .MOD has.
struct OptionsNomeMod {
  std::vector<PasseNomeMod> passes = {{}};                          // at least one
  std::vector<std::pair<std::string, std::string>> intitules = {};  // modality, label

  bool Cree() const;
  bool operator==(const OptionsNomeMod&) const = default;
};
Fin NommerModalites(const Contexte& contexte, const OptionsNomeMod& options);

}  // namespace quelvar::modalities
