#include "regression/logistique/vraisemblance.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace quelvar::regression {

namespace {

// What a probability of 0 or of 1, which has no logarithm, is counted for.
constexpr double kProbabiliteMin = 0.00001;
constexpr double kProbabiliteMax = 1 - kProbabiliteMin;
// Steps of the search: from a hundredth, which comes near in few of them, to what the report shows of a parameter.
constexpr double kIncrements[] = {0.01, 0.001, 0.0001};
constexpr double kRecul = 0.1;  // what makes the first step of a line search go
constexpr std::int64_t kPasDuSuivi = 1024;

// Lists of numbers one after the other, by the key of each.
void ParCle(const std::vector<std::uint32_t>& cles, const std::vector<std::uint32_t>& valeurs, std::size_t nombre,
            std::vector<std::size_t>& departs, std::vector<std::uint32_t>& liste) {
  departs.assign(nombre + 1, 0);
  for (const std::uint32_t cle : cles) ++departs[cle + 1];
  for (std::size_t i = 0; i < nombre; ++i) departs[i + 1] += departs[i];
  std::vector<std::size_t> places(departs.begin(), departs.end() - 1);
  liste.resize(cles.size());
  for (std::size_t i = 0; i < cles.size(); ++i) liste[places[cles[i]]++] = valeurs[i];
}

}  // namespace

double Probabilite(FonctionDeLien lien, double score) {
  return lien == FonctionDeLien::Lineaire ? score : 1 / (1 + std::exp(-score));
}

LogVraisemblance::LogVraisemblance(const Observations& observations, FonctionDeLien lien, Parametres parametres)
    : observations_(observations),
      lien_(lien),
      parametres_(std::move(parametres)),
      termes_(observations.profils.size()),
      cumuls_(observations.profils.size() + 1) {
  const std::size_t lignes = observations.profils.size();
  std::vector<std::uint32_t> numeros(lignes);
  for (std::uint32_t r = 0; r < lignes; ++r) numeros[r] = r;
  ParCle(observations.profils, numeros, observations.Profils(), departsLignes_, lignes_);

  std::vector<std::uint32_t> rangs;
  std::vector<std::uint32_t> profils;
  premieres_.assign(observations.parametres, lignes);
  for (std::uint32_t s = 0; s < observations.Profils(); ++s)
    for (const Observations::Terme& terme : observations.Termes(s)) {
      rangs.push_back(terme.rang);
      profils.push_back(s);
      if (departsLignes_[s] < departsLignes_[s + 1])
        premieres_[terme.rang] = std::min<std::size_t>(premieres_[terme.rang], lignes_[departsLignes_[s]]);
    }
  ParCle(rangs, profils, observations.parametres, departsProfils_, porteurs_);
  Recalculer();
}

void LogVraisemblance::Recalculer(std::size_t profil) {
  double score = parametres_.alpha;
  for (const Observations::Terme& terme : observations_.Termes(profil))
    score += parametres_.betas[terme.rang] * terme.valeur;
  double p = Probabilite(lien_, score);
  if (p >= 1) p = kProbabiliteMax;
  if (p <= 0) p = kProbabiliteMin;
  const double logOui = std::log(p);
  const double logNon = std::log(1 - p);
  for (std::size_t i = departsLignes_[profil]; i < departsLignes_[profil + 1]; ++i) {
    const std::uint32_t r = lignes_[i];
    const double y = observations_.reponses[r];
    termes_[r] = observations_.poids[r] * (y * logOui + (1 - y) * logNon);
  }
}

void LogVraisemblance::Recalculer() {
  for (std::size_t s = 0; s < observations_.Profils(); ++s) Recalculer(s);
  Sommer(0);
}

void LogVraisemblance::Sommer(std::size_t depuis) {
  double somme = cumuls_[depuis];
  for (std::size_t r = depuis; r < termes_.size(); ++r) {
    somme += termes_[r];
    cumuls_[r + 1] = somme;
  }
}

void LogVraisemblance::PoserAlpha(double alpha) {
  parametres_.alpha = alpha;
  Recalculer();
}

void LogVraisemblance::PoserBeta(std::size_t rang, double beta) {
  parametres_.betas[rang] = beta;
  for (std::size_t i = departsProfils_[rang]; i < departsProfils_[rang + 1]; ++i) Recalculer(porteurs_[i]);
  Sommer(premieres_[rang]);
}

void LogVraisemblance::Poser(Parametres parametres) {
  parametres_ = std::move(parametres);
  Recalculer();
}

Ajustement Maximiser(const Observations& observations, FonctionDeLien lien, Parametres depart, const Suivi& suivi,
                     std::int64_t passagesMax) {
  LogVraisemblance vraisemblance(observations, lien, std::move(depart));
  Ajustement ajustement;
  double increment = 0;
  double meilleure = vraisemblance.Valeur();
  std::int64_t pas = 0;
  // One line search: steps as long as the likelihood rises strictly.
  const auto chercher = [&](Mouvement mouvement, std::size_t rang) {
    const bool alpha = EstDAlpha(mouvement);
    const double mouvant = Monte(mouvement) ? increment : -increment;
    meilleure = vraisemblance.Valeur() - kRecul;
    while (vraisemblance.Valeur() > meilleure) {
      meilleure = vraisemblance.Valeur();
      if (alpha) vraisemblance.PoserAlpha(vraisemblance.Courants().alpha + mouvant);
      else vraisemblance.PoserBeta(rang, vraisemblance.Courants().betas[rang] + mouvant);
      ajustement.iterations += alpha ? 0 : 1;
      if (++pas % kPasDuSuivi == 0) suivi(mouvement, vraisemblance.Valeur(), increment);
    }
  };

  std::int64_t passages = 0;
  for (std::size_t echelle = 0; echelle < std::size(kIncrements) && !ajustement.interrompu;) {
    if (passages == passagesMax) {
      ajustement.interrompu = true;
      break;
    }
    ++passages;
    increment = kIncrements[echelle];
    const double avant = meilleure;
    chercher(Mouvement::AlphaPlus, 0);
    chercher(Mouvement::AlphaMoins, 0);
    for (std::size_t rang = 0; rang < observations.parametres; ++rang) {
      chercher(Mouvement::BetaPlus, rang);
      chercher(Mouvement::BetaMoins, rang);
    }
    if (avant == meilleure) ++echelle;
  }
  ajustement.parametres = vraisemblance.Courants();
  ajustement.logVraisemblance = vraisemblance.Valeur();
  return ajustement;
}

}  // namespace quelvar::regression
