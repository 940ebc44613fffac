#include "capture/apercu/observation/listes.h"

#include <algorithm>
#include <map>
#include <set>
#include <string>

#include "capture/apercu/observation/mots.h"
#include "core/texte/caracteres.h"

namespace quelvar::capture {

namespace {

constexpr std::string_view kSignes = ";|,";

struct ElementDeListe {
  std::int64_t effectif = 0;  // cells that hold it
  std::size_t valeurs = 0;    // different cells that hold it
  bool enListe = false;       // it stands beside another one
  bool seul = false;          // it stands alone somewhere
};

bool EstPetitEntier(std::string_view texte) { return texte.size() <= 2 && SontChiffres(texte); }

// A comma stands in sentences and numbers too: the answers that it separates must be met in
// different company, and one of them alone.
bool Convient(char signe, const std::map<std::string, ElementDeListe>& elements) {
  if (elements.size() < 2 || elements.size() > kTextesCourts) return false;
  if (std::ranges::any_of(elements, [](const auto& e) { return e.first.size() > kLongueurCourte; })) return false;
  const auto revient = [](const auto& e) { return e.second.valeurs > 1; };
  if (signe != ',') return std::ranges::any_of(elements, revient);
  if (std::ranges::none_of(elements, [](const auto& e) { return e.second.enListe && e.second.seul; })) return false;
  return std::ranges::all_of(elements,
                             [&](const auto& e) { return !e.second.enListe || revient(e) || EstPetitEntier(e.first); });
}

}  // namespace

char SigneDeListe(const std::vector<ValeurComptee>& valeurs, std::vector<ValeurComptee>& elements) {
  for (const char signe : kSignes) {
    std::map<std::string, ElementDeListe> vus;
    bool liste = false;
    const auto enTete = [signe](const ValeurComptee& v) {
      return v.valeur.starts_with(signe) || v.valeur.ends_with(signe);
    };
    if (signe == ',' && std::ranges::any_of(valeurs, enTete)) continue;  // ",5" and "4," are numbers
    for (const ValeurComptee& valeur : valeurs) {
      std::set<std::string> deLaCellule;
      SeparerListe(valeur.valeur, signe, [&](std::string_view e) { deLaCellule.emplace(e); });
      liste = liste || deLaCellule.size() > 1;
      for (const std::string& element : deLaCellule) {
        ElementDeListe& vu = vus[element];
        vu.effectif += valeur.effectif;
        ++vu.valeurs;
        (deLaCellule.size() > 1 ? vu.enListe : vu.seul) = true;
      }
      if (vus.size() > kValeursGardees) break;
    }
    if (!liste || !Convient(signe, vus)) continue;
    for (const auto& [texte, element] : vus) elements.push_back({texte, element.effectif});
    std::ranges::sort(elements, [](const auto& a, const auto& b) { return AvantParOrdre(a.valeur, b.valeur); });
    return signe;
  }
  return '\0';
}

}  // namespace quelvar::capture
