// The making of a descriptor: questions validated one after the other, on a plain state that the form shows.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/enquete/colonnes.h"
#include "core/enquete/desfile.h"
#include "core/programme/programme.h"

namespace quelvar::capture {

struct DefinitionDeQuestion {
  std::string nom;
  int nombre = 0;  // code-max, or characters
  GenreDescription genre = GenreDescription::NumeriqueCourte;
};

struct EtatDescripteur {
  std::vector<DefinitionDeQuestion> questions;
  std::optional<std::size_t> corrigee;  // the question that came back for correction
};

inline constexpr std::size_t kQuestionsDuDescripteur = 1000;
inline constexpr int kLongueurDuNom = kLargeurDeQuestion;
inline constexpr int kCodeMaxCourt = 99;  // two columns of the descriptor

// Whether the code-max or width is missing, or is none for that kind.
bool NombreEnFaute(std::string_view codeMax, GenreDescription genre);
// What a question is refused for, in the order of the checks; empty when it can be validated.
std::string_view RefusDeQuestion(const EtatDescripteur& etat, std::string_view nom, std::string_view codeMax,
                                 GenreDescription genre);
// Adds the question, or stores it at the place of the corrected one. Returns the refusal, and then changes nothing.
std::string_view ValiderQuestion(EtatDescripteur& etat, std::string_view nom, std::string_view codeMax,
                                 GenreDescription genre);

// The line of a question, in the list and in the file.
std::string LigneDuDescripteur(const DefinitionDeQuestion& question);
// What CodeMax stands for.
std::string_view LibelleCodeMax(GenreDescription genre);

// Writes the descriptor of the generic. Raises the failures of Remplacement.
void EnregistrerDescripteur(const Contexte& contexte, const EtatDescripteur& etat);

}  // namespace quelvar::capture
