#include "sorts/regles/vit.h"

#include <algorithm>

#include "core/enquete/colonnes.h"
#include "core/programme/erreur.h"
#include "core/programme/report.h"
#include "core/texte/nombres.h"
#include "core/texte/texte.h"

namespace quelvar::sorts {

namespace {

ElementVit LireElement(const std::string& ligne) {
  ElementVit element;
  element.ligne = ligne;
  element.nom = CadreGauche(Milieu(ligne, 1, kLargeurDeQuestion), kLargeurDeQuestion);
  const std::string_view code = Milieu(ligne, 8, 2);
  element.sansCode = Rogner(code).empty();
  element.additif = code.find('+') != std::string_view::npos;
  element.code = Entier16(ValeurDe(code));
  element.score = Entier16(ValeurDe(Milieu(ligne, 10)));
  if (element.score == 0) element.score = 1;
  return element;
}

}  // namespace

bool Vit::Additive() const { return !elements.empty() && elements.front().additif; }

bool Vit::PlusOublie() const {
  return std::ranges::any_of(elements, [this](const ElementVit& e) { return e.additif != Additive(); });
}

BlocVit LireBlocVit(std::span<const std::string> lignes) {
  BlocVit bloc;
  for (const std::string& ligne : lignes) {
    ++bloc.lignes;
    const std::size_t marque = ligne.find(kMarqueVit);
    if (marque == std::string::npos) {
      if (bloc.vits.back().elements.size() == kElementsVitMaximum) throw Erreur(kIndiceHorsSelection);
      bloc.vits.back().elements.push_back(LireElement(ligne));
      continue;
    }
    const std::string_view nom = RognerDroite(std::string_view(ligne).substr(marque + kMarqueVit.size()));
    if (nom.empty()) break;
    if (bloc.vits.size() == kVitMaximum) throw Erreur(kIndiceHorsSelection);
    bloc.vits.push_back({std::string(nom), {}});
  }
  return bloc;
}

}  // namespace quelvar::sorts
