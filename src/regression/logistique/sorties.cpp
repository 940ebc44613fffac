#include "regression/logistique/sorties.h"

#include <cmath>

#include "core/panne/erreur.h"

namespace quelvar::regression {

namespace {

constexpr int kDichotomies = 30;  // halvings of the range of a mean, which leave a billionth of it
constexpr double kMoitie = 0.5;

TestDeVraisemblance Tester(double degres, double reduit, double complet) {
  TestDeVraisemblance test;
  test.khi2 = -2 * (reduit - complet);
  test.probabilite = crosstab::ProbaKhi2(degres, test.khi2);
  return test;
}

double MoyenneAjustee(FonctionDeLien lien, double beta, double base) {
  if (lien == FonctionDeLien::Lineaire) return beta + base;
  const double chances = std::exp(beta) * base / (1 - base);
  return std::isinf(chances) ? 1 : chances / (1 + chances);
}

}  // namespace

double EffetEnPoints(const ModeleAjuste& ajuste, double beta) {
  if (ajuste.lien == FonctionDeLien::Lineaire) return 100 * beta;
  const double alpha = ajuste.ajustement.parametres.alpha;
  return 100 * Probabilite(FonctionDeLien::Logistique, alpha + beta) -
         100 * Probabilite(FonctionDeLien::Logistique, alpha);
}

std::vector<std::size_t> RangsDesParametres(const Modele& modele) {
  std::vector<std::size_t> rangs(modele.Explicatives(), kSansParametre);
  std::size_t suivant = 0;
  for (std::size_t k = 0; k < rangs.size(); ++k)
    if (!modele.Explicative(k).reference) rangs[k] = suivant++;
  return rangs;
}

Observations ObservationsDe(const std::vector<Comptee>& comptees, const Fiches& fiches, const Modele& modele) {
  const std::vector<std::size_t> rangs = RangsDesParametres(modele);
  Observations observations;
  for (const std::size_t rang : rangs) observations.parametres += rang != kSansParametre ? 1 : 0;
  Fiches profils(modele.Explicatives());
  for (const Comptee& comptee : comptees) {
    const std::string_view fiche = fiches[comptee.fiche];
    const NumeroFiche profil = profils.Ranger(fiches.Situation(comptee.fiche));
    if (profil == observations.Profils()) {
      for (std::size_t k = 0; k < rangs.size(); ++k)
        if (rangs[k] != kSansParametre && ValeurDuCaractere(fiche[k]) != 0)
          observations.termes.push_back(
              {static_cast<std::uint32_t>(rangs[k]), static_cast<double>(ValeurDuCaractere(fiche[k]))});
      observations.departs.push_back(observations.termes.size());
    }
    observations.profils.push_back(profil);
    observations.poids.push_back(comptee.effectif);
    observations.reponses.push_back(ValeurDuCaractere(fiche[fiche.size() - 2]));
  }
  return observations;
}

TestsDuModele TesterLeModele(const Observations& observations, const ModeleAjuste& ajuste,
                             const std::function<void(std::size_t)>& suivre) {
  const Parametres& trouves = ajuste.ajustement.parametres;
  const double complet = ajuste.ajustement.logVraisemblance;
  TestsDuModele tests;
  Parametres constante{ajuste.lien == FonctionDeLien::Lineaire ? kMoitie : 0,
                       std::vector<double>(trouves.betas.size())};
  LogVraisemblance vraisemblance(observations, ajuste.lien, constante);
  tests.logConstante = vraisemblance.Valeur();
  tests.modele = Tester(static_cast<double>(trouves.betas.size()), tests.logConstante, complet);
  vraisemblance.Poser(trouves);
  for (std::size_t j = 0; j < trouves.betas.size(); ++j) {
    suivre(j + 1);
    vraisemblance.PoserBeta(j, 0);
    tests.parametres.push_back(Tester(1, vraisemblance.Valeur(), complet));
    vraisemblance.PoserBeta(j, trouves.betas[j]);
  }
  return tests;
}

std::vector<double> MoyennesExperimentales(const std::vector<Comptee>& comptees, const Fiches& fiches,
                                           const Modele& modele, const ModeleAjuste& ajuste) {
  const double alpha = ajuste.ajustement.parametres.alpha;
  double poids = 0;
  for (const Comptee& comptee : comptees) poids += comptee.effectif;
  std::vector<double> moyennes;
  for (std::size_t m = 0; m < modele.Explicatives(); ++m) {
    std::vector<double> coefficients = ajuste.betas;
    for (std::size_t b = 0; b < coefficients.size(); ++b)
      if (modele.Explicative(b).Question() == modele.Explicative(m).Question()) coefficients[b] = 0;
    double somme = 0;
    double probabilite = 0;
    std::string_view precedente;  // most situations come as two neighbours, those who say yes and those who do not
    for (const Comptee& comptee : comptees) {
      const std::string_view situation = fiches.Situation(comptee.fiche);
      if (situation != precedente) {
        double score = alpha + ajuste.betas[m];
        for (std::size_t b = 0; b < coefficients.size(); ++b)
          score += coefficients[b] * ValeurDuCaractere(situation[b]);
        probabilite = Probabilite(ajuste.lien, score);
        precedente = situation;
      }
      somme += comptee.effectif * probabilite;
    }
    moyennes.push_back(somme / poids);
  }
  return moyennes;
}

std::vector<double> MoyennesAjustees(const DonneesDeBase& base, const Modele& modele, const ModeleAjuste& ajuste) {
  std::vector<double> ajustees(modele.Explicatives());
  for (const QuestionCodee& question : modele.explicantes) {
    double communes = 0;
    double pas = kMoitie;
    for (int i = 0; i < kDichotomies; ++i, pas /= 2) {
      communes += pas;
      double somme = 0;
      for (std::size_t m = question.premiere; m < question.premiere + question.nombre; ++m) {
        ajustees[m] = MoyenneAjustee(ajuste.lien, ajuste.betas[m], communes);
        somme += ajustees[m] * base.total[m];
      }
      if (base.MoyenneGenerale() - somme / base.individus < 0) communes -= pas;
    }
  }
  return ajustees;
}

}  // namespace quelvar::regression
