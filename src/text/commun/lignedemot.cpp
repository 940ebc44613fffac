#include "text/commun/lignedemot.h"

#include <algorithm>

namespace quelvar::text {

std::optional<std::size_t> LargeurDesCaracteristiques(std::string_view ligne) {
  constexpr std::size_t kTexte = kLargeurCode + kLargeurMot;
  constexpr std::size_t kBout = kTexte + kFinDeMot.size();
  constexpr std::size_t kContextes = kContexteGauche + kContexteDroit;
  if (ligne.size() >= kBout + kContextes) {
    const std::size_t largeur = ligne.size() - kBout - kContextes;
    if (ligne.substr(largeur + kTexte, kFinDeMot.size()) == kFinDeMot) return largeur;
  }
  const std::size_t place = ligne.find(kFinDeMot, std::min(kTexte, ligne.size()));
  if (place == std::string_view::npos) return std::nullopt;
  return place - kTexte;
}

}  // namespace quelvar::text
