#include "core/resultats/deuxlignes.h"

#include <utility>

#include "core/texte/texte.h"

namespace quelvar {

namespace {

using Morceaux = std::array<std::string, kLignesDeTete>;

Morceaux CouperEnDeux(std::string_view nom, std::size_t colonnes) {
  if (nom.size() <= colonnes) return {std::string(nom), std::string()};
  const std::size_t blanc = nom.substr(0, colonnes + 1).rfind(' ');
  if (blanc != std::string_view::npos) return {std::string(nom.substr(0, blanc)), std::string(nom.substr(blanc + 1))};
  const std::size_t debut = colonnes - 1;  // the hyphen takes a column
  return {Joindre({nom.substr(0, debut), "-"}), std::string(nom.substr(debut))};
}

Morceaux MorceauxDe(std::string_view nom, const PlaceDeNom& place) {
  const bool enHaut = place.debuts[0] != kHorsDeLaLigne;
  const bool enBas = place.debuts[1] != kHorsDeLaLigne;
  if (enHaut && enBas) return CouperEnDeux(nom, static_cast<std::size_t>(place.coupe));
  return {std::string(enHaut ? nom : ""), std::string(enBas ? nom : "")};
}

void AllongerJusqua(std::string& ligne, int colonnes) {
  if (colonnes > static_cast<int>(ligne.size())) ligne.resize(static_cast<std::size_t>(colonnes), ' ');
}

}  // namespace

std::array<std::string, kLignesDeTete> TeteADeuxLignes(std::string_view coin, std::span<const std::string_view> noms,
                                                       std::span<const int> enPlus, const FormeADeuxLignes& forme) {
  Morceaux lignes;
  const Morceaux duCoin = MorceauxDe(coin, forme.coin);
  for (std::size_t k = 0; k < kLignesDeTete; ++k) {
    AllongerJusqua(lignes[k], forme.coin.debuts[k]);
    lignes[k] += duCoin[k];
  }
  Morceaux precedents;
  int decalage = 0;
  for (std::size_t j = 0; j < noms.size(); ++j) {
    if (!forme.fixe) decalage += enPlus[j];
    Morceaux morceaux = MorceauxDe(noms[j], forme.noms[j]);
    for (std::size_t k = 0; k < kLignesDeTete; ++k) {
      const int debut = forme.noms[j].debuts[k];
      const bool commun = j > 0 && forme.noms[j - 1].debuts[k] == debut && precedents[k] == morceaux[k];
      if (commun || morceaux[k].empty()) continue;
      AllongerJusqua(lignes[k], debut + decalage);
      lignes[k] += morceaux[k];
    }
    precedents = std::move(morceaux);
  }
  for (std::size_t k = 0; k < kLignesDeTete; ++k) AllongerJusqua(lignes[k], forme.colonnes[k] + decalage);
  return lignes;
}

}  // namespace quelvar
