#include "capture/apercu/choix/textes.h"

#include <algorithm>
#include <map>

#include "capture/apercu/observation/mots.h"

namespace quelvar::capture {

std::vector<std::vector<ValeurComptee>> EcrituresProches(const ChoixDeColonne& choix, const FaitsDeColonne& colonne) {
  const bool liste = choix.genre == Genre::Multiple && choix.liste != '\0';
  if (!liste && choix.genre != Genre::Textes) return {};
  std::map<std::string, std::vector<ValeurComptee>> parTexte;
  for (const ValeurComptee& valeur : liste ? colonne.elements : colonne.valeurs)
    if (!EstParmi(choix.nonReponses, valeur.valeur)) parTexte[SansEcriture(valeur.valeur)].push_back(valeur);
  std::vector<std::vector<ValeurComptee>> proches;
  for (auto& groupe : parTexte)
    if (groupe.second.size() > 1) proches.push_back(std::move(groupe.second));
  return proches;
}

std::vector<int> CodesDesTextes(const ChoixDeColonne& choix, const std::vector<std::string>& textes) {
  std::vector<int> codes;
  std::map<std::string, int> donnes;
  int dernier = 0;
  for (const std::string& texte : textes) {
    const auto [donne, nouveau] = donnes.emplace(choix.fondus ? SansEcriture(texte) : texte, dernier + 1);
    if (nouveau) ++dernier;
    codes.push_back(donne->second);
  }
  return codes;
}

std::int64_t TextesACoder(const ChoixDeColonne& choix, const FaitsDeColonne& colonne) {
  std::int64_t nombre = 0;
  if (choix.fondus)
    for (const auto& proches : EcrituresProches(choix, colonne))
      nombre -= static_cast<std::int64_t>(proches.size()) - 1;
  for (const ValeurComptee& valeur : colonne.valeurs)
    if (!EstParmi(choix.nonReponses, valeur.valeur)) ++nombre;
  return colonne.valeurs.empty() ? colonne.differentes : nombre;
}

}  // namespace quelvar::capture
