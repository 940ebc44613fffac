#include "crosstab/tableau/tableau.h"

#include <algorithm>
#include <numeric>
#include <optional>
#include <span>
#include <utility>

#include "crosstab/tableau/maximum.h"
#include "crosstab/tableau/premierfacteur.h"

namespace quelvar::crosstab {

namespace {

constexpr int kCodeMaxDeuxParDeux = 2;

std::vector<int> CodesDepuisZero(std::size_t nombre) {
  std::vector<int> codes(nombre);
  std::iota(codes.begin(), codes.end(), 0);
  return codes;
}

std::vector<std::size_t> PlacesPleines(const std::vector<double>& totaux) {
  std::vector<std::size_t> places;
  for (std::size_t i = 0; i < totaux.size(); ++i)
    if (totaux[i] > 0) places.push_back(i);
  return places;
}

Marges MargesDe(const Matrice& effectifs) {
  Marges marges{std::vector<double>(effectifs.Lignes()), std::vector<double>(effectifs.Colonnes()), 0};
  for (std::size_t i = 0; i < effectifs.Lignes(); ++i) {
    for (std::size_t j = 0; j < effectifs.Colonnes(); ++j) {
      const double effectif = effectifs(i, j);
      marges.lignes[i] += effectif;
      marges.colonnes[j] += effectif;
      marges.total += effectif;
    }
  }
  return marges;
}

Matrice Ecarts(const Matrice& effectifs, const Marges& marges) {
  return EcartsEnProportions(effectifs, marges.lignes, marges.colonnes, marges.total);
}

// What deviations in proportions come to: the sum of their squares over the theoretical proportions (chi-square / N)
// and the sum of the positive ones.
struct SommesDEcarts {
  double carres = 0;
  double positifs = 0;
};

SommesDEcarts Sommer(const Matrice& ecarts, const Marges& marges) {
  SommesDEcarts sommes;
  for (std::size_t i = 0; i < ecarts.Lignes(); ++i) {
    for (std::size_t j = 0; j < ecarts.Colonnes(); ++j) {
      const double ecart = ecarts(i, j);
      const double theorique = (marges.lignes[i] / marges.total) * (marges.colonnes[j] / marges.total);
      if (theorique != 0) sommes.carres += ecart * ecart / theorique;
      if (ecart > 0) sommes.positifs += ecart;
    }
  }
  return sommes;
}

// Each total times the factor, over all.
std::vector<double> Parts(const std::vector<double>& totaux, double facteur, double total) {
  std::vector<double> parts(totaux);
  for (double& part : parts) part = facteur * part / total;
  return parts;
}

// First place behind code 0 with a total above 0; code 0 itself in a question that has no other code.
std::size_t PlaceDeDepart(const std::vector<double>& totaux) {
  return totaux.size() > 1 ? PremierNonVide(totaux, 1) : 0;
}

template <typename T>
std::vector<T> Reordonner(const std::vector<T>& valeurs, const std::vector<std::size_t>& ordre) {
  std::vector<T> resultat;
  for (const std::size_t place : ordre) resultat.push_back(valeurs[place]);
  return resultat;
}

Matrice Reordonner(const Matrice& table, const std::vector<std::size_t>& lignes,
                   const std::vector<std::size_t>& colonnes) {
  Matrice resultat(table.Lignes(), table.Colonnes());
  for (std::size_t i = 0; i < lignes.size(); ++i)
    for (std::size_t j = 0; j < colonnes.size(); ++j) resultat(i, j) = table(lignes[i], colonnes[j]);
  return resultat;
}

void OrdonnerPourPem(TableauCroise& t, const Matrice& ecarts, const OrdreDemande& ordre) {
  const PremierFacteur facteur = ExtrairePremierFacteur(
      ecarts, Parts(t.marges.lignes, 1, t.marges.total), Parts(t.marges.colonnes, 1, t.marges.total),
      {PlaceDeDepart(t.marges.lignes), PlaceDeDepart(t.marges.colonnes)});
  const std::vector<std::size_t> lignes = OrdreDesScores(facteur.lignes, ordre.inverserLignes);
  const std::vector<std::size_t> colonnes = OrdreDesScores(facteur.colonnes, ordre.inverserColonnes);
  t.codesLignes = Reordonner(t.codesLignes, lignes);
  t.codesColonnes = Reordonner(t.codesColonnes, colonnes);
  t.marges.lignes = Reordonner(t.marges.lignes, lignes);
  t.marges.colonnes = Reordonner(t.marges.colonnes, colonnes);
  t.effectifs = Reordonner(t.effectifs, lignes, colonnes);
}

void CalculerPourcentages(TableauCroise& t) {
  t.pourcentages = Matrice(t.effectifs.Lignes(), t.effectifs.Colonnes());
  for (const std::size_t i : t.lignes)
    for (const std::size_t j : t.colonnes) t.pourcentages(i, j) = 100 * t.effectifs(i, j) / t.marges.lignes[i];
  t.partsLignes = Parts(t.marges.lignes, 100, t.marges.total);
  t.partsColonnes = Parts(t.marges.colonnes, 100, t.marges.total);
}

void CalculerKhi2(TableauCroise& t) {
  t.contributions = Matrice(t.effectifs.Lignes(), t.effectifs.Colonnes());
  t.contributionsLignes.assign(t.effectifs.Lignes(), 0);
  t.contributionsColonnes.assign(t.effectifs.Colonnes(), 0);
  for (const std::size_t i : t.lignes) {
    for (const std::size_t j : t.colonnes) {
      const double theorique = t.marges.lignes[i] * t.marges.colonnes[j] / t.marges.total;
      const double ecart = t.effectifs(i, j) - theorique;
      const double contribution = ecart * ecart / theorique;
      t.contributions(i, j) = contribution;
      t.contributionsLignes[i] += contribution;
      t.contributionsColonnes[j] += contribution;
      t.khi2 += contribution;
      if (theorique < 1) {
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

// First and last of the non-empty places, leaving out the one where code 0 stands.
std::optional<std::pair<std::size_t, std::size_t>> Extremes(const std::vector<std::size_t>& pleines,
                                                            const std::vector<int>& codes) {
  std::optional<std::pair<std::size_t, std::size_t>> extremes;
  for (const std::size_t place : pleines) {
    if (codes[place] == 0) continue;
    if (!extremes) extremes.emplace(place, place);
    extremes->second = place;
  }
  return extremes;
}

Diagonale DiagonaleDuTableau(const TableauCroise& t, const Matrice& ecarts) {
  const auto lignes = Extremes(t.lignes, t.codesLignes);
  const auto colonnes = Extremes(t.colonnes, t.codesColonnes);
  if (!lignes || !colonnes) return Diagonale::Autre;
  return ChoisirDiagonale(ecarts(lignes->first, colonnes->first), ecarts(lignes->first, colonnes->second),
                          ecarts(lignes->second, colonnes->first), ecarts(lignes->second, colonnes->second));
}

void CalculerPem(TableauCroise& t, const Matrice& ecarts, const SommesDEcarts& observe) {
  t.maximum = TableauMaximum(t.marges.lignes, t.marges.colonnes, DiagonaleDuTableau(t, ecarts));
  const SommesDEcarts maximal = Sommer(Ecarts(t.maximum, t.marges), t.marges);
  if (maximal.carres > 0) t.partKhi2Max = 100 * observe.carres / maximal.carres;
  if (maximal.positifs > 0) t.pem = 100 * observe.positifs / maximal.positifs;
}

}  // namespace

TableauCroise AnalyserTableau(const Matrice& effectifs, const OrdreDemande& ordre) {
  TableauCroise t;
  t.codesLignes = CodesDepuisZero(effectifs.Lignes());
  t.codesColonnes = CodesDepuisZero(effectifs.Colonnes());
  t.effectifs = effectifs;
  t.marges = MargesDe(effectifs);
  if (t.Vide()) return t;
  Matrice ecarts = Ecarts(t.effectifs, t.marges);
  const SommesDEcarts observe = Sommer(ecarts, t.marges);
  if (ordre.pourPem) {
    OrdonnerPourPem(t, ecarts, ordre);
    ecarts = Ecarts(t.effectifs, t.marges);
  }
  t.lignes = PlacesPleines(t.marges.lignes);
  t.colonnes = PlacesPleines(t.marges.colonnes);
  t.deuxParDeux = t.lignes.size() == 2 && t.colonnes.size() == 2 && effectifs.Lignes() == kCodeMaxDeuxParDeux + 1 &&
                  effectifs.Colonnes() == kCodeMaxDeuxParDeux + 1;
  CalculerPourcentages(t);
  CalculerKhi2(t);
  CalculerPem(t, ecarts, observe);
  return t;
}

std::vector<AttractionLocale> AttractionsLocales(const TableauCroise& tableau) {
  std::vector<AttractionLocale> attractions;
  attractions.reserve(tableau.lignes.size() * tableau.colonnes.size());
  for (const std::size_t i : tableau.lignes)
    for (const std::size_t j : tableau.colonnes)
      attractions.push_back(PemLocal(tableau.marges.total, tableau.marges.lignes[i], tableau.marges.colonnes[j],
                                     tableau.effectifs(i, j)));
  return attractions;
}

}  // namespace quelvar::crosstab
