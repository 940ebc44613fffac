// Questions and modalities found by the name that a user typed or a file holds: blanks around a name count for nothing.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/enquete/colonnes.h"
#include "core/panne/erreur.h"
#include "core/texte/texte.h"

namespace quelvar {

struct FichierPos;

// How a name that nothing bears exactly is looked for.
enum class Casse { Exacte, Indifferente };

// The ranks of the elements whose `nom` is that name: exactly, else, when asked for, without regard to case. More than
// one rank means that elements share the name.
template <class Elements>
std::vector<std::size_t> RangsDuNom(const Elements& elements, std::string_view nom, Casse casse = Casse::Exacte) {
  const std::string_view cherche = Rogner(nom);
  std::vector<std::size_t> rangs;
  if (cherche.empty()) return rangs;
  for (std::size_t i = 0; i < elements.size(); ++i)
    if (Rogner(elements[i].nom) == cherche) rangs.push_back(i);
  if (casse == Casse::Exacte || !rangs.empty()) return rangs;
  for (std::size_t i = 0; i < elements.size(); ++i)
    if (EgalSansCasse(Rogner(elements[i].nom), cherche)) rangs.push_back(i);
  return rangs;
}

// The sentence on a name that several questions share, at these positions of .DAT.
std::string FauteHomonymes(std::string_view nom, std::span<const int> positions);

// The sentence on a name that so many modalities of a .MOD share.
std::string FauteModalitesHomonymes(std::string_view nom, std::size_t modalites);

// The rank of the modality of that name, if there is one. Raises FauteModalitesHomonymes (kIncompatibiliteType), with
// the line of the second one, when several have it.
template <class Modalites>
std::optional<std::size_t> SeuleModalite(const Modalites& modalites, std::string_view nom) {
  const std::vector<std::size_t> rangs = RangsDuNom(modalites, nom);
  if (rangs.size() > 1)
    throw Erreur(kIncompatibiliteType, FauteModalitesHomonymes(nom, rangs.size()))
        .Situer({{}, LigneDansLaListe(rangs[1])});
  return rangs.empty() ? std::nullopt : std::optional(rangs.front());
}

// FauteHomonymes for the ranks that RangsDuNom gave.
template <class Questions>
std::string FauteHomonymes(std::string_view nom, const Questions& questions, const std::vector<std::size_t>& rangs) {
  std::vector<int> positions;
  for (const std::size_t rang : rangs) positions.push_back(questions[rang].position);
  return FauteHomonymes(nom, std::span<const int>(positions));
}

// The sentence on a question that the .POS has not.
std::string FauteQuestionAbsente(std::string_view nom);

// Raises FauteHomonymes (kIncompatibiliteType), with the place of the second one, when two questions share a name,
// trimmed.
void ExigerNomsDifferents(const FichierPos& pos);

}  // namespace quelvar
