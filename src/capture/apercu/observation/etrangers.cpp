#include "capture/apercu/observation/etrangers.h"

#include <algorithm>

#include "capture/apercu/observation/listes.h"
#include "capture/apercu/octets/pages.h"

namespace quelvar::capture {

void TextesEtrangers::Voir(std::string_view cellule, std::string_view brute, std::int64_t ligne) {
  std::map<std::string, Brute>& brutes = brutes_[std::string(cellule)];
  const auto connue = brutes.find(std::string(brute));
  if (connue != brutes.end()) {
    ++connue->second.effectif;
  } else if (nombre_ < kValeursGardees) {
    ++nombre_;
    brutes.emplace(brute, Brute{ligne, 1});
  }
}

std::vector<TexteConfondu> TextesEtrangers::Confondus(char liste, const std::vector<ValeurComptee>& valeurs) const {
  std::map<std::string, std::map<std::string, std::int64_t>> parTexte;
  const auto voir = [&](std::string_view texte, std::string_view brute, std::int64_t ligne) {
    std::vector<std::string> textes;
    const auto couper = [&](std::string_view cellule) {
      if (liste == '\0') textes.emplace_back(cellule);
      else SeparerListe(cellule, liste, [&](std::string_view element) { textes.emplace_back(element); });
    };
    couper(texte);
    const std::size_t nombre = textes.size();
    couper(brute);
    for (std::size_t i = 0; i < nombre && nombre + i < textes.size(); ++i)
      if (textes[i].find(kEtranger) != std::string::npos) parTexte[textes[i]].emplace(textes[nombre + i], ligne);
  };
  for (const auto& [texte, brutes] : brutes_)
    for (const auto& [brute, ou] : brutes) voir(texte, brute, ou.ligne);
  if (parTexte.empty()) return {};
  // A "?" that stands in the file is a text like the others.
  for (const ValeurComptee& valeur : valeurs) {
    if (valeur.valeur.find(kEtranger) == std::string::npos) continue;
    std::int64_t autres = 0;
    if (const auto brutes = brutes_.find(valeur.valeur); brutes != brutes_.end())
      for (const auto& brute : brutes->second) autres += brute.second.effectif;
    if (valeur.effectif > autres) voir(valeur.valeur, valeur.valeur, 0);
  }
  std::vector<TexteConfondu> confondus;
  for (const auto& [texte, brutes] : parTexte) {
    if (brutes.size() < 2) continue;
    TexteConfondu& confondu = confondus.emplace_back(TexteConfondu{texte, {}});
    for (const auto& brute : brutes)
      if (brute.second > 0) confondu.lignes.push_back(brute.second);
    std::ranges::sort(confondu.lignes);
  }
  return confondus;
}

}  // namespace quelvar::capture
