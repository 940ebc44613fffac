#include "tables/gamma.h"

#include <vector>

#include "core/panne/erreur.h"
#include "core/texte/texte.h"
#include "crosstab/tableau/ordre.h"

namespace quelvar::tables {

namespace {

// Products summed over the pairs of cells of two rows, the second one lower.
struct SommesDePaires {
  double descendantes = 0;  // the lower cell stands to the right
  double montantes = 0;     // the lower cell stands to the left
};

SommesDePaires SommerPaires(const Matrice& effectifs) {
  SommesDePaires sommes;
  std::vector<double> auDessus(effectifs.Colonnes());  // sum of each column in the rows above
  for (std::size_t k = 0; k < effectifs.Lignes(); ++k) {
    const std::span<const double> ligne = effectifs.Ligne(k);
    double aGauche = 0;
    for (std::size_t l = 0; l < ligne.size(); ++l) {
      sommes.descendantes += ligne[l] * aGauche;
      aGauche += auDessus[l];
    }
    double aDroite = 0;
    for (std::size_t l = ligne.size(); l-- > 0;) {
      sommes.montantes += ligne[l] * aDroite;
      aDroite += auDessus[l];
    }
    for (std::size_t l = 0; l < ligne.size(); ++l) auDessus[l] += ligne[l];
  }
  return sommes;
}

}  // namespace

Gamma CalculerGamma(const crosstab::TableauCompte& table) {
  const crosstab::Diagonale diagonale = crosstab::DiagonaleDe(table, crosstab::Bords::Tous);
  const SommesDePaires sommes = SommerPaires(table.effectifs);
  const double carre = table.marges.total * table.marges.total;
  Gamma gamma;
  gamma.accords = 2 * (diagonale == crosstab::Diagonale::Principale ? sommes.descendantes : sommes.montantes) / carre;
  gamma.desaccords =
      2 * (diagonale == crosstab::Diagonale::Principale ? sommes.montantes : sommes.descendantes) / carre;
  const double paires = gamma.accords + gamma.desaccords;
  if (paires != 0) gamma.gamma = (gamma.accords - gamma.desaccords) / paires;
  return gamma;
}

TableauEdite TableDeGamma(const Gamma& gamma) {
  constexpr int kDecimales = 3;
  const auto cellule = [](const std::optional<double>& valeur) { return Cellule{valeur, Unite::Nombre, kDecimales}; };
  return {.titres = {"Gamma de Goodman et Kruskal"},
          .rangees = {{"Proportion d'accords", {}, {cellule(gamma.accords)}},
                      {Joindre({"Proportion de désaccords"_w}), {}, {cellule(gamma.desaccords)}},
                      {"*** Gamma de Goodman et Kruskal", {}, {cellule(gamma.gamma)}}}};
}

}  // namespace quelvar::tables
