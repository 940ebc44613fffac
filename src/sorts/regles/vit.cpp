#include "sorts/regles/vit.h"

#include <algorithm>

#include "core/chiffres/nombres.h"
#include "core/enquete/colonnes.h"
#include "core/programme/rapport.h"
#include "core/texte/texte.h"

namespace quelvar::sorts {

namespace {

ElementVit LireElement(const std::string& ligne) {
  ElementVit element;
  element.ligne = ligne;
  element.nom = CadreGauche(Milieu(ligne, 1, kLargeurDeQuestion), kLargeurDeQuestion);
  const std::string_view code = Milieu(ligne, kColonneDeCodeVit, kColonnesDeCodeVit);
  element.sansCode = Rogner(code).empty();
  element.additif = code.find('+') != std::string_view::npos;
  element.code = Entier16(ValeurDe(code));
  element.score = Entier16(ValeurDe(Milieu(ligne, kColonneDeCodeVit + kColonnesDeCodeVit)));
  if (element.score == 0) element.score = 1;
  return element;
}

}  // namespace

bool Vit::Additive() const { return !elements.empty() && elements.front().additif; }

const ElementVit* Vit::PlusOublie() const {
  const auto autre = std::ranges::find_if(elements, [this](const ElementVit& e) { return e.additif != Additive(); });
  return autre == elements.end() ? nullptr : &*autre;
}

BlocVit LireBlocVit(std::span<const std::string> lignes, const Lieu& debut) {
  BlocVit bloc;
  const auto ici = [&] {
    Lieu lieu = debut;
    if (lieu.ligne > 0) lieu.ligne += static_cast<std::int64_t>(bloc.lignes) - 1;
    return lieu;
  };
  for (const std::string& ligne : lignes) {
    ++bloc.lignes;
    const std::size_t marque = ligne.find(kMarqueVit);
    if (marque == std::string::npos) {
      if (bloc.vits.back().elements.size() == kElementsVitMaximum) throw Erreur(kIndiceHorsSelection).Situer(ici());
      bloc.vits.back().elements.push_back(Situer(ici, [&] { return LireElement(ligne); }));
      bloc.vits.back().elements.back().ou = ici();
      continue;
    }
    const std::string_view nom = RognerDroite(std::string_view(ligne).substr(marque + kMarqueVit.size()));
    if (nom.empty()) break;
    if (bloc.vits.size() == kVitMaximum) throw Erreur(kIndiceHorsSelection).Situer(ici());
    bloc.vits.push_back({std::string(nom), {}});
  }
  return bloc;
}

BlocVit LireBlocVit(const FichierPos& pos) {
  if (pos.fin != FinDeListe::Dollars) return {};
  return LireBlocVit(std::span(pos.lignes).subspan(pos.premiereApres),
                     {.fichier = pos.nom, .ligne = static_cast<std::int64_t>(pos.premiereApres) + 1});
}

}  // namespace quelvar::sorts
