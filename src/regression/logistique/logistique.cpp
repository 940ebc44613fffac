#include "regression/logistique/logistique.h"

#include <cmath>

#include "core/chiffres/nombres.h"
#include "regression/logistique/edition.h"
#include "regression/logistique/indistincts.h"
#include "regression/logistique/sorties.h"

namespace quelvar::regression {

namespace {

constexpr double kPointsDUneUnite = 100;     // a coefficient of 1 is a whole probability
constexpr double kChancesMinimales = 0.001;  // where a linear coefficient leads to a probability below 0
// What the progress display shows: the logarithm of the precision, up to a tenth of the last increment.
constexpr double kPrecisionAffichee = 100000;
constexpr int kPasDeProgression = 100;

double Logit(double chances) {
  if (chances == 0) throw Erreur(kArgumentIncorrect);
  return std::log(chances);
}

double Chances(double p) {
  if (p == 1) throw Erreur(kDivisionParZero);
  return p / (1 - p);
}

Suivi SuiviPour(const Dialogue& ecran) {
  return [&ecran](Mouvement mouvement, double logVraisemblance, double increment) {
    const bool alpha = EstDAlpha(mouvement);
    ecran.montrerIteration(
        Joindre({alpha ? "Maximisation de la vraisemblance paramètre Alpha = "_w
                       : "Maximisation de la vraisemblance paramètres Béta = "_w,
                 Nombre(logVraisemblance), Monte(mouvement) ? std::string_view(" Incr+") : " Incr-"}));
    ecran.progresser(static_cast<std::int64_t>(kPasDeProgression * std::log(1 / increment)));
  };
}

ModeleAjuste Ajuster(const Dialogue& ecran, FonctionDeLien lien, const Observations& observations,
                     const Parametres& depart, const Modele& modele) {
  ecran.montrerProgression(static_cast<std::int64_t>(kPasDeProgression * std::log(kPrecisionAffichee)));
  ModeleAjuste ajuste{lien, Maximiser(observations, lien, depart, SuiviPour(ecran)),
                      std::vector<double>(modele.Explicatives())};
  const std::vector<std::size_t> rangs = RangsDesParametres(modele);
  for (std::size_t k = 0; k < rangs.size(); ++k)
    if (rangs[k] != kSansParametre) ajuste.betas[k] = ajuste.ajustement.parametres.betas[rangs[k]];
  return ajuste;
}

}  // namespace

Parametres DepartLineaire(const TravailDAnatab& travail) {
  std::vector<double> moyennes(travail.modele.Explicatives());
  for (const Effet& effet : travail.analyse.effets) moyennes[effet.modalite] = effet.moyenne;
  Parametres depart;
  depart.alpha = travail.analyse.PartReference();
  for (std::size_t k = 0; k < moyennes.size(); ++k)
    if (!travail.modele.Explicative(k).reference) depart.betas.push_back(moyennes[k] / kPointsDUneUnite);
  return depart;
}

Parametres DepartLogistique(const TravailDAnatab& travail, const Parametres& lineaires) {
  const double p = travail.analyse.PartReference();
  Parametres depart;
  depart.alpha = Logit(Chances(p));
  for (const double b : lineaires.betas) {
    const double chances = Chances(p + b);
    depart.betas.push_back(Logit(chances < 0 ? kChancesMinimales : chances) - depart.alpha);
  }
  return depart;
}

ModeleAjuste AjusterLesModeles(const Contexte& contexte, Rapport& rapport, const TravailDAnatab& travail) {
  const Dialogue& ecran = contexte.Ecran();
  const Fiches& fiches = travail.individus.fiches;
  const Observations observations = ObservationsDe(travail.comptees, fiches, travail.modele);
  const std::vector<std::size_t> indistincts = ParametresIndistincts(observations);
  Parametres depart = DepartLineaire(travail);
  ModeleAjuste ajuste;
  for (const FonctionDeLien lien : {FonctionDeLien::Lineaire, FonctionDeLien::Logistique}) {
    if (lien == FonctionDeLien::Logistique) depart = DepartLogistique(travail, ajuste.ajustement.parametres);
    ajuste = Ajuster(ecran, lien, observations, depart, travail.modele);
    const TestsDuModele tests = TesterLeModele(observations, ajuste, [&](std::size_t rang) {
      ecran.montrerIteration(Joindre({"Calcul des test  ", Nombre(rang)}));
    });
    ImprimerParametres(rapport, travail, ajuste, indistincts);
    ImprimerTests(rapport, travail, ajuste, tests);
    ImprimerEffetExperimental(rapport, travail, ajuste,
                              MoyennesExperimentales(travail.comptees, fiches, travail.modele, ajuste));
    ImprimerEffetPur(rapport, travail, ajuste, MoyennesAjustees(travail.base, travail.modele, ajuste));
  }
  return ajuste;
}

}  // namespace quelvar::regression
