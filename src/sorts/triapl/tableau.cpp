#include "sorts/triapl/tableau.h"

#include <cmath>

#include "core/chiffres/nombres.h"
#include "core/resultats/cellules.h"

namespace quelvar::sorts {

namespace {

constexpr double kDixiemesParPourcent = 10;
constexpr double kDixiemesDuTout = 100 * kDixiemesParPourcent;
constexpr double kDemi = 0.5;  // a half goes up

// Columns of the codes behind that of the total; `codes` receives the code of each.
TableauEdite RetenirPresents(const std::vector<double>& effectifs, std::size_t premierCode, double total,
                             std::vector<int>& codes) {
  TableauEdite tableau;
  tableau.colonnes = {{"Tot."}};
  tableau.rangees = {{"Effectif", {}, {CelluleEffectif(total)}}, {"Pourcentage", {}, {{100.0, Unite::Pourcent}}}};
  for (std::size_t code = premierCode; code < effectifs.size(); ++code) {
    if (effectifs[code] <= 0) continue;
    codes.push_back(static_cast<int>(code));
    tableau.colonnes.push_back({Nombre(code)});
    tableau.rangees[0].cellules.push_back(CelluleEffectif(effectifs[code]));
    const double part = static_cast<double>(PartEnDixiemes(effectifs[code], total)) / kDixiemesParPourcent;
    tableau.rangees[1].cellules.push_back({part, Unite::Pourcent, 1});
  }
  return tableau;
}

void PoserIntitules(const Question& question, const IntitulesModalites& intitules, std::size_t nombreDeCodes,
                    const std::vector<int>& presents, TableauEdite& tableau) {
  std::size_t colonne = 0;
  for (std::size_t code = 0; code < nombreDeCodes; ++code) {
    const std::string nom = Joindre({question.nom, CodeCaractere(static_cast<int>(code))});
    const std::string* intitule = intitules.Chercher(nom);
    if (colonne == presents.size() || presents[colonne] != static_cast<int>(code)) continue;
    ++colonne;
    if (intitule) tableau.colonnes[colonne].intitule = Rogner(*intitule).empty() ? nom : *intitule;
  }
}

}  // namespace

std::int64_t PartEnDixiemes(double effectif, double total) {
  return total == 0 ? 0 : Entier64(std::floor(kDixiemesDuTout * effectif / total + kDemi));
}

TableauEdite DresserTableau(const Question& question, const std::vector<double>& effectifs, double total,
                            const IntitulesModalites* intitules) {
  std::vector<int> codes;
  TableauEdite tableau = RetenirPresents(effectifs, 0, total, codes);
  if (intitules && question.codeMax < kPremierCodeDouble)
    PoserIntitules(question, *intitules, effectifs.size(), codes, tableau);
  return tableau;
}

TableauEdite DresserCumul(const std::vector<double>& effectifs, double total) {
  std::vector<int> codes;
  return RetenirPresents(effectifs, 1, total, codes);
}

PartsTrg EffectifsDuTriangle(const std::vector<double>& effectifs) {
  PartsTrg triangle{};
  for (std::size_t code = 1; code <= triangle.size() && code < effectifs.size(); ++code)
    triangle[code - 1] = effectifs[code];
  return triangle;
}

PartsTrg PartsDuTriangle(const std::vector<double>& effectifs) {
  return PourcentagesTrg(EffectifsDuTriangle(effectifs));
}

}  // namespace quelvar::sorts
