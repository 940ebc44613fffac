#include "crosstab/tableau/tableau.h"

#include <algorithm>

#include "crosstab/tableau/ordre.h"

namespace quelvar::crosstab {

namespace {

constexpr int kCodeMaxDeuxParDeux = 2;

// The order of the first axis, each side turned when asked.
TableauCompte OrdonnerPourPem(const TableauCompte& compte, const OrdreDemande& ordre) {
  const PremierFacteur facteur = FacteurDe(compte, Bords::CodesPleins);
  return Reordonner(compte, OrdreDesScores(facteur.lignes, ordre.inverserLignes),
                    OrdreDesScores(facteur.colonnes, ordre.inverserColonnes));
}

void CalculerKhi2(TableauCroise& t) {
  t.contributionsLignes.assign(t.compte.effectifs.Lignes(), 0);
  t.contributionsColonnes.assign(t.compte.effectifs.Colonnes(), 0);
  for (const std::size_t i : t.lignes) {
    for (const std::size_t j : t.colonnes) {
      const double contribution = t.details.contributions(i, j);
      t.contributionsLignes[i] += contribution;
      t.contributionsColonnes[j] += contribution;
      t.khi2 += contribution;
      if (t.details.theoriques(i, j) < 1) {
        t.casesFaibles.push_back({i, j, contribution});
        t.khi2Faibles += contribution;
      }
    }
  }
  t.degres = (static_cast<int>(t.colonnes.size()) - 1) * (static_cast<int>(t.lignes.size()) - 1);
  t.proba = ProbaKhi2(t.degres, t.khi2);
  const std::size_t nombreDeCases = t.lignes.size() * t.colonnes.size();
  // Nothing but rounding is left when every cell is taken away.
  if (t.casesFaibles.size() < nombreDeCases) t.khi2SansFaibles = std::max(0.0, t.khi2 - t.khi2Faibles);
  t.probaSansFaibles = ProbaKhi2(t.degres, t.khi2SansFaibles);
  t.partCasesFaibles = 100 * static_cast<double>(t.casesFaibles.size()) / static_cast<double>(nombreDeCases);
  if (t.khi2 > 0) t.partKhi2Faibles = 100 * t.khi2Faibles / t.khi2;
}

void CalculerPem(TableauCroise& t, const SommesDEcarts& observe) {
  t.maximum = MaximumDe(t.compte, Bords::CodesPleins);
  const SommesDEcarts maximal = SommerEcarts(t.maximum, t.compte.marges, Echelle::Proportions);
  if (maximal.positifs > 0) t.pem = 100 * observe.positifs / maximal.positifs;
}

}  // namespace

TableauCroise AnalyserTableau(const Matrice& effectifs, const OrdreDemande& ordre) {
  TableauCroise t;
  t.compte = Compter(effectifs);
  if (t.Vide()) return t;
  // Summed in the order of the codes, whatever order is printed.
  const SommesDEcarts observe = SommerEcarts(effectifs, t.compte.marges, Echelle::Proportions);
  if (ordre.pourPem) t.compte = OrdonnerPourPem(t.compte, ordre);
  t.lignes = PlacesPleines(t.compte.marges.lignes);
  t.colonnes = PlacesPleines(t.compte.marges.colonnes);
  t.deuxParDeux = t.lignes.size() == 2 && t.colonnes.size() == 2 && effectifs.Lignes() == kCodeMaxDeuxParDeux + 1 &&
                  effectifs.Colonnes() == kCodeMaxDeuxParDeux + 1;
  t.details = Detailler(t.compte);
  CalculerKhi2(t);
  CalculerPem(t, observe);
  return t;
}

}  // namespace quelvar::crosstab
