#include "regression/reglin/resultats.h"

#include <cmath>

#include "core/programme/rapport.h"
#include "core/resultats/cellules.h"
#include "core/texte/caracteres.h"

namespace quelvar::regression {

namespace {

constexpr int kDecimales = 4;
constexpr int kDecimalesDeT = 2;  // of a Student ratio

// Moments about 0 keep about 16 digits of the squares of the values: below this share of the mean, what is left of a
// standard deviation is too little for the digits shown.
constexpr double kDispersionSure = 1e-5;

Cellule Decimale(double valeur) { return {valeur, Unite::Nombre, kDecimales, {}}; }

// Adds the row of a variable; returns what keeps it from having one.
std::optional<NumeroErreur> Ajouter(const Variable& variable, const Dispersion& dispersion, std::size_t rang,
                                    VariablesDecrites& decrites) {
  const double variance = dispersion.covariances(rang, rang);
  const double n = dispersion.individus;
  if (variance < 0) return kArgumentIncorrect;
  if (n == 1) return kDivisionParZero;
  const double moyenne = dispersion.moyennes[rang];
  const double ecartType = std::sqrt(variance);
  const double corrige = std::sqrt(variance * n / (n - 1));
  decrites.tableau.rangees.push_back(
      {variable.intitule, {}, {Decimale(moyenne), Decimale(ecartType), Decimale(corrige)}});
  if (!dispersion.constantes[rang] && ecartType < kDispersionSure * std::fabs(moyenne))
    decrites.incertaines.push_back(variable.intitule);
  return std::nullopt;
}

// Decimals that a field has in the source.
int DecimalesDe(std::string_view champ) {
  const std::size_t point = champ.find('.');
  if (point == champ.npos) return 0;
  std::size_t fin = point + 1;
  while (fin < champ.size() && EstChiffre(champ[fin])) ++fin;
  return static_cast<int>(fin - point - 1);
}

}  // namespace

VariablesDecrites Decrire(const VariablesDeRegression& variables, const Dispersion& dispersion) {
  VariablesDecrites decrites;
  decrites.tableau.colonnes = {{"moyenne"}, {Joindre({"écart-type"_w})}, {Joindre({"écart-type corrigé"_w})}};
  const std::size_t expliquee = variables.explicatives.size() + 1;
  decrites.arret = Ajouter(variables.Expliquee(), dispersion, expliquee, decrites);
  for (std::size_t i = 0; i < variables.explicatives.size() && !decrites.arret; ++i)
    decrites.arret = Ajouter(variables.explicatives[i], dispersion, i, decrites);
  return decrites;
}

TableauEdite TableauDeVariance(const AjustementLineaire& a) {
  TableauEdite tableau;
  tableau.titres = {Joindre({"Décomposition de la variance"_w})};
  tableau.coin = "Variance";
  tableau.colonnes = {{"DDL"}, {Joindre({"Somme des carrés"_w})}, {Joindre({"Carré moyen"_w})}};
  const auto ajouter = [&](std::string_view source, double degres, double variance) {
    const double somme = a.individus * variance;
    tableau.rangees.push_back(
        {std::string(source), {}, {CelluleEntiere(degres), Decimale(somme), Decimale(somme / degres)}});
  };
  ajouter("Totale", a.individus - 1, a.totale);
  ajouter("Expliquée"_w, static_cast<double>(a.explicatives), a.expliquee);
  ajouter("Résiduelle"_w, a.degres, a.residuelle);
  return tableau;
}

ParametresEstimes EstimerParametres(const VariablesDeRegression& variables, const AjustementLineaire& a) {
  ParametresEstimes estimes;
  estimes.tableau.titres = {Joindre({"Estimation des paramètres"_w})};
  estimes.tableau.coin = Joindre({"Paramètre"_w});
  estimes.tableau.colonnes = {{"Estimation"}, {"Ecart-type"}, {"Test T"}, {"Signification"}};
  std::vector<Rangee>& rangees = estimes.tableau.rangees;
  const auto ajouter = [&](std::string_view nom, std::size_t i) {
    estimes.arrete = estimes.arrete || a.ecartsTypes[i] == 0;
    if (estimes.arrete) return;
    const double t = a.parametres[i] / a.ecartsTypes[i];
    rangees.push_back({std::string(nom),
                       std::string(MarqueT(t)),
                       {Decimale(a.parametres[i]), Decimale(a.ecartsTypes[i]), {t, Unite::Nombre, kDecimalesDeT, {}}}});
  };
  const std::size_t constante = a.explicatives;
  ajouter("Ord.à l'origine"_w, constante);
  if (!estimes.arrete) rangees.emplace_back();
  for (std::size_t i = 0; i < constante; ++i) ajouter(variables.explicatives[i].intitule, i);
  return estimes;
}

std::vector<Cellule> CellulesDeLaLigne(std::string_view ligne, const VariablesDeRegression& variables) {
  std::vector<Cellule> cellules;
  for (std::size_t rang = 0; rang < variables.noms.size(); ++rang) {
    const std::string_view champ = TexteDuChamp(ligne, rang, variables.largeur);
    cellules.push_back({ValeurDuChamp(champ), Unite::Nombre, DecimalesDe(champ), {}});
  }
  return cellules;
}

}  // namespace quelvar::regression
