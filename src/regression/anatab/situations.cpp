#include "regression/anatab/situations.h"

#include <algorithm>
#include <cmath>

#include "core/chiffres/nombres.h"
#include "core/panne/erreur.h"
#include "core/programme/rapport.h"
#include "crosstab/tableau/khi2.h"

namespace quelvar::regression {

namespace {

constexpr int kLargeurDeCellule = 4;  // of its label, and of its role
constexpr int kDecimalesConservees = 6;

// The flag of the explained modality is kept by the order of the file, that of the references by the packed one: a
// modality may thus bear the mark of another.
std::string_view RoleDe(const Modele& modele, std::size_t k) {
  if (modele.Explicative(k).reference) return " R  ";
  return modele.codage[k].aExpliquer ? " Y  " : "    ";
}

}  // namespace

std::vector<CelluleDeSituation> CellulesDe(const Modele& modele) {
  std::vector<CelluleDeSituation> cellules(modele.Explicatives() + 1);
  for (std::size_t k = 0; k < modele.Explicatives(); ++k) {
    CelluleDeSituation& cellule = cellules[k];
    cellule.intitule = CadreGauche(modele.Explicative(k).intitule, kLargeurDeCellule);
    cellule.role = RoleDe(modele, k);
    cellule.reference = modele.Explicative(k).reference;
    cellule.texte = k;
    for (std::size_t avant = k; avant-- > 0;) {
      if (cellules[avant].intitule != cellule.intitule) continue;
      if (cellules[avant].role == cellule.role) cellule.texte = cellules[avant].texte;
      cellules[avant].designee = k;
    }
    cellule.designee = k;
  }
  cellules.back().intitule = cellules.back().role = CadreGauche("", kLargeurDeCellule);
  cellules.back().texte = cellules.back().designee = modele.Explicatives();
  return cellules;
}

// Not the chi-square of crosstab::PemLocal: that one corrects small counts after Yates and counts 0 for a margin
// without individuals, which here stops the analysis; and its one quotient rounds otherwise than the sum of four terms,
// which tells the class of a chi-square that stands on a bound.
Khi2Paire KhiCellule(double total, double totalOui, double n, double y) {
  const double nons = total - totalOui;
  const double theoriques[] = {n * totalOui / total, n * nons / total, (total - n) * totalOui / total,
                               (total - n) * nons / total};
  const double observes[] = {y, n - y, totalOui - y, total - n - totalOui + y};
  Khi2Paire resultat;
  for (std::size_t i = 0; i < 4; ++i) {
    if (theoriques[i] == 0) throw Erreur(kDivisionParZero);
    const double ecart = theoriques[i] - observes[i];
    resultat.khi2 += ecart * ecart / theoriques[i];
  }
  resultat.classe = crosstab::ClasseKhi2(resultat.khi2, crosstab::Borne::Exclue);
  return resultat;
}

Khi2Paire KhiPaire(double n1, double n2, double y1, double y2) { return KhiCellule(n1 + n2, y1 + y2, n1, y1); }

double Situation::EcartTypeDeLaPart() const {
  const double p = pourcentage / 100;
  return std::sqrt(p * (1 - p) / effectif);
}

double TableSituations::Population() const {
  double population = 0;
  for (const Situation& situation : situations) population += situation.effectif;
  return population;
}

TableSituations FormerSituations(const std::vector<Comptee>& comptees, const Fiches& fiches, const Modele& modele) {
  TableSituations table;
  table.questions = modele.explicantes.size();
  for (std::size_t debut = 0, fin = 0; debut < comptees.size(); debut = fin) {
    const std::string_view fiche = fiches.Situation(comptees[debut].fiche);
    for (fin = debut + 1; fin < comptees.size() && fiches.Situation(comptees[fin].fiche) == fiche;) ++fin;
    Situation situation;
    situation.oui = comptees[debut].effectif;
    situation.effectif = situation.oui + comptees[fin - 1].effectif;
    situation.pourcentage = Arrondir(situation.Brut(), kDecimalesConservees);
    table.situations.push_back(situation);
    std::size_t trouvees = 0;
    for (std::uint32_t k = 0; k < fiche.size() && trouvees < table.questions; ++k)
      if (ValeurDuCaractere(fiche[k]) != 0) {
        table.modalites.push_back(k);
        ++trouvees;
      }
    table.modalites.resize(table.situations.size() * table.questions,
                           static_cast<std::uint32_t>(modele.Explicatives()));
  }
  return table;
}

std::size_t ExaminerSituations(TableSituations& table, double individus, double oui) {
  for (std::size_t s = 0; s < table.situations.size(); ++s) {
    Situation& situation = table.situations[s];
    if (situation.effectif == individus || oui == 0 || oui == individus) return s;
    situation.khi2 = KhiCellule(individus, oui, situation.effectif, situation.oui);
  }
  return table.situations.size();
}

std::optional<std::size_t> SituationDeReference(const TableSituations& table,
                                                const std::vector<CelluleDeSituation>& cellules) {
  for (std::size_t s = table.situations.size(); s-- > 0;) {
    const std::span<const std::uint32_t> modalites = table.Modalites(s);
    if (std::all_of(modalites.begin(), modalites.end(), [&](std::uint32_t k) { return cellules[k].reference; }))
      return s;
  }
  return std::nullopt;
}

}  // namespace quelvar::regression
