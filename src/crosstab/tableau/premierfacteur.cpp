#include "crosstab/tableau/premierfacteur.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "core/chiffres/nombres.h"
#include "core/panne/erreur.h"

namespace quelvar::crosstab {

namespace {

// Divides the scores by their weights and by their norm, which it returns.
double Normaliser(std::span<double> scores, std::span<const double> poids) {
  double carre = 0;
  for (std::size_t i = 0; i < scores.size(); ++i) {
    const double divise = poids[i] != 0 ? scores[i] / poids[i] : scores[i];
    carre += divise * scores[i];
    scores[i] = divise;
  }
  if (!std::isfinite(carre)) throw Erreur(kDepassementCapacite);
  if (carre < 0) throw Erreur(kArgumentIncorrect);
  const double norme = std::sqrt(carre);
  if (norme != 0)
    for (double& score : scores) score /= norme;
  return norme;
}

double Milliemes(double score) { return ArrondirPair(kEnMilliemes * score); }

}  // namespace

Matrice EcartsEnProportions(const Matrice& effectifs, const Marges& marges) {
  if (marges.total == 0) throw Erreur(kDivisionParZero);
  Matrice ecarts(effectifs.Lignes(), effectifs.Colonnes());
  for (std::size_t i = 0; i < ecarts.Lignes(); ++i)
    for (std::size_t j = 0; j < ecarts.Colonnes(); ++j)
      ecarts(i, j) = EcartEnProportions(effectifs(i, j), marges, i, j);
  return ecarts;
}

PremierFacteur ExtrairePremierFacteur(const Matrice& ecarts, std::span<const double> poidsLignes,
                                      std::span<const double> poidsColonnes, DepartDuFacteur depart, int toursMax) {
  if (depart.ligne >= ecarts.Lignes() || depart.colonne >= ecarts.Colonnes()) throw Erreur(kIndiceHorsSelection);
  PremierFacteur facteur;
  facteur.lignes.resize(ecarts.Lignes());
  facteur.colonnes.resize(ecarts.Colonnes());
  for (std::size_t i = 0; i < ecarts.Lignes(); ++i) facteur.lignes[i] = ecarts(i, depart.colonne) < 0 ? -1 : 1;

  double norme = 0;
  double suivi = Milliemes(facteur.lignes[depart.ligne]);
  for (int tour = 0; tour < toursMax; ++tour) {
    std::fill(facteur.colonnes.begin(), facteur.colonnes.end(), 0.0);
    for (std::size_t i = 0; i < ecarts.Lignes(); ++i) {
      const std::span<const double> ligne = ecarts.Ligne(i);
      for (std::size_t j = 0; j < ligne.size(); ++j) facteur.colonnes[j] += facteur.lignes[i] * ligne[j];
    }
    Normaliser(facteur.colonnes, poidsColonnes);
    for (std::size_t i = 0; i < ecarts.Lignes(); ++i) {
      const std::span<const double> ligne = ecarts.Ligne(i);
      facteur.lignes[i] = std::inner_product(ligne.begin(), ligne.end(), facteur.colonnes.begin(), 0.0);
    }
    norme = Normaliser(facteur.lignes, poidsLignes);
    const double nouveau = Milliemes(facteur.lignes[depart.ligne]);
    if (nouveau == suivi) break;
    suivi = nouveau;
  }
  for (double& score : facteur.lignes) score *= norme;
  for (double& score : facteur.colonnes) score *= norme;
  facteur.valeurPropre = norme * norme;
  return facteur;
}

std::vector<std::size_t> OrdreDesScores(std::span<const double> scores, bool decroissant) {
  std::vector<std::size_t> ordre(scores.size());
  std::iota(ordre.begin(), ordre.end(), std::size_t{0});
  std::stable_sort(ordre.begin(), ordre.end(), [&](std::size_t a, std::size_t b) {
    return decroissant ? scores[a] > scores[b] : scores[a] < scores[b];
  });
  return ordre;
}

}  // namespace quelvar::crosstab
