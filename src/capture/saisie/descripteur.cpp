#include "capture/saisie/descripteur.h"

#include <algorithm>

#include "core/chiffres/nombres.h"
#include "core/enquete/posfile.h"
#include "core/texte/caracteres.h"

namespace quelvar::capture {

namespace {

constexpr std::size_t kChiffresAuPlus = 4;  // more than any code-max or width has

// The sentences of the refusals hold these numbers.
static_assert(kCodeMaxCourt == 99 && kLargeurAlphaAuPlus == 20 && kLongueurDuNom == 3 &&
              kQuestionsDuDescripteur == 1000);

std::string_view RefusDuNombre(std::string_view codeMax, GenreDescription genre) {
  const int nombre =
      codeMax.size() <= kChiffresAuPlus && SontChiffres(codeMax) ? static_cast<int>(ValeurDe(codeMax)) : 0;
  if (genre == GenreDescription::NumeriqueCourte)
    return nombre >= 1 && nombre <= kCodeMaxCourt ? std::string_view{} : "Le code max est un nombre de 1 à 99"_w;
  return nombre >= 1 && nombre <= kLargeurAlphaAuPlus ? std::string_view{} : "La largeur est un nombre de 1 à 20"_w;
}

std::string_view RefusDuNom(const EtatDescripteur& etat, std::string_view nom) {
  if (const auto fin = MarqueDeFin(nom); fin && *fin != FinDeListe::LigneBlanche)
    return "Un nom ne peut pas contenir ** ou $$";
  for (std::size_t i = 0; i < etat.questions.size(); ++i)
    if (i != etat.corrigee && Rogner(etat.questions[i].nom) == Rogner(nom))
      return "Ce nom est déjà celui d'une autre question"_w;
  return {};
}

}  // namespace

bool NombreEnFaute(std::string_view codeMax, GenreDescription genre) {
  codeMax = Rogner(codeMax);
  return codeMax.empty() || !RefusDuNombre(codeMax, genre).empty();
}

std::string_view RefusDeQuestion(const EtatDescripteur& etat, std::string_view nom, std::string_view codeMax,
                                 GenreDescription genre) {
  codeMax = Rogner(codeMax);
  if (Rogner(nom).empty()) return "Nom vide";
  if (codeMax.empty())
    return genre == GenreDescription::NumeriqueCourte ? "Code max non défini"_w : "Largeur non définie"_w;
  if (nom.size() < kLongueurDuNom) return "Le nom n'a pas 3 caractères"_w;
  if (const std::string_view refus = RefusDuNombre(codeMax, genre); !refus.empty()) return refus;
  if (const std::string_view refus = RefusDuNom(etat, nom.substr(0, kLongueurDuNom)); !refus.empty()) return refus;
  if (!etat.corrigee && etat.questions.size() >= kQuestionsDuDescripteur)
    return "Un descripteur ne peut pas avoir plus de 1000 questions";
  return {};
}

std::string_view ValiderQuestion(EtatDescripteur& etat, std::string_view nom, std::string_view codeMax,
                                 GenreDescription genre) {
  const std::string_view refus = RefusDeQuestion(etat, nom, codeMax, genre);
  if (!refus.empty()) return refus;
  DefinitionDeQuestion question{std::string(nom.substr(0, kLongueurDuNom)), static_cast<int>(ValeurDe(codeMax)), genre};
  if (etat.corrigee) etat.questions[*etat.corrigee] = std::move(question);
  else etat.questions.push_back(std::move(question));
  etat.corrigee.reset();
  return {};
}

std::string LigneDuDescripteur(const DefinitionDeQuestion& question) {
  return LigneDescription(question.nom, question.nombre, question.genre);
}

std::string_view LibelleCodeMax(GenreDescription genre) {
  switch (genre) {
    case GenreDescription::NumeriqueCourte: return "Code maximum des modalités de la question"_w;
    case GenreDescription::Alphabetique: return "Largeur de la question en caractères"_w;
    case GenreDescription::NumeriqueLongue: break;
  }
  return "Nombre de chiffres du nombre à entrer"_w;
}

void EnregistrerDescripteur(const Contexte& contexte, const EtatDescripteur& etat) {
  Remplacement des(contexte.repertoire, contexte.Nom(".DES"), Nature::Unique);
  for (const DefinitionDeQuestion& question : etat.questions) des.Fichier().Ligne(LigneDuDescripteur(question));
  des.Valider();
}

}  // namespace quelvar::capture
