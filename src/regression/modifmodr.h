// ModifModR: which modality of the .MOD is to be explained (Y), which are the references (R) and which explain (X).
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/enquete/listemod.h"
#include "core/options/dites.h"
#include "core/programme/programme.h"

namespace quelvar::regression {

enum class TypeDeQuestion { AExpliquer, Explicative };

// The distinct questions (three characters) in the order of the list.
std::vector<std::string> QuestionsDesTextes(const std::vector<std::string>& textes);
// Indices of the modalities of a question.
std::vector<std::size_t> ModalitesDe(const std::vector<std::string>& textes, std::string_view question);

// A click on a question: all its modalities become " X ", or blank when it is the one to explain.
void CoderQuestion(std::vector<std::string>& textes, std::string_view question, TypeDeQuestion type);
// A click on a modality: " Y " or " R ".
void CoderModalite(std::string& texte, TypeDeQuestion type);

// What keeps the coding from being saved; empty for nothing.
std::string_view RefusDEnregistrer(const std::vector<std::string>& textes);
// The warning on a coding that was saved all the same; empty for a sound one.
std::string_view Incoherence(const std::vector<std::string>& textes);

inline constexpr std::string_view kTitreAvertissement = "*** Avertissement ***";

// Writes the lines back into the .MOD, all else as it stands. Raises the failures of RemplacerModalites.
void SauverModifModR(const Contexte& contexte, const std::vector<std::string>& textes);
// Leaves after a sound save, or by "Annuler" behind one that was warned of: the report .prt holds the one sentence.
Fin TerminerModifModR(const Contexte& contexte);
Fin AbandonnerModifModR(const Contexte& contexte);

// The same without a form: the question of each name is coded anew, the ones to explain before the references.
struct OptionsModifModR {
  std::vector<std::string> expliquer = {};
  std::vector<std::string> references = {};
  std::vector<std::pair<std::string, std::string>> intitules = {};  // name and label

  bool operator==(const OptionsModifModR&) const = default;
};
Fin ModifModR(const Contexte& contexte, const OptionsModifModR& options);

// The options that make `textes` of what the file holds; none do for modalities that share their name, nor for
// a question left without a Y and without an R.
OptionsDites<OptionsModifModR> OptionsDuCodage(const std::vector<std::string>& duFichier,
                                               const std::vector<std::string>& textes);

}  // namespace quelvar::regression
