#include "crosstab/tableau/compte.h"

#include <cmath>
#include <limits>
#include <numeric>
#include <utility>

#include "core/panne/erreur.h"

namespace quelvar::crosstab {

namespace {

std::vector<std::size_t> RangsDepuisZero(std::size_t nombre) {
  std::vector<std::size_t> rangs(nombre);
  std::iota(rangs.begin(), rangs.end(), std::size_t{0});
  return rangs;
}

template <typename T>
std::vector<T> Choisir(const std::vector<T>& valeurs, const std::vector<std::size_t>& places) {
  std::vector<T> choisies;
  for (const std::size_t place : places) choisies.push_back(valeurs[place]);
  return choisies;
}

}  // namespace

Marges MargesDe(const Matrice& effectifs) {
  Marges marges{std::vector<double>(effectifs.Lignes()), std::vector<double>(effectifs.Colonnes()), 0};
  for (std::size_t i = 0; i < effectifs.Lignes(); ++i)
    for (std::size_t j = 0; j < effectifs.Colonnes(); ++j) {
      const double effectif = effectifs(i, j);
      marges.lignes[i] += effectif;
      marges.colonnes[j] += effectif;
      marges.total += effectif;
    }
  return marges;
}

std::vector<double> Parts(const std::vector<double>& totaux, double total, double facteur) {
  // No share has a value in a table without a total: what is computed from them is found impossible.
  if (total == 0) return std::vector<double>(totaux.size(), std::numeric_limits<double>::quiet_NaN());
  std::vector<double> parts(totaux);
  for (double& part : parts) part = facteur * part / total;
  return parts;
}

std::vector<std::size_t> PlacesPleines(const std::vector<double>& totaux) {
  std::vector<std::size_t> places;
  for (std::size_t i = 0; i < totaux.size(); ++i)
    if (totaux[i] > 0) places.push_back(i);
  return places;
}

TableauCompte Compter(Matrice effectifs) {
  TableauCompte table;
  table.marges = MargesDe(effectifs);
  if (!std::isfinite(table.marges.total)) throw Erreur(kDepassementCapacite);
  table.rangsLignes = RangsDepuisZero(effectifs.Lignes());
  table.rangsColonnes = RangsDepuisZero(effectifs.Colonnes());
  table.effectifs = std::move(effectifs);
  return table;
}

TableauCompte Reordonner(const TableauCompte& table, const std::vector<std::size_t>& lignes,
                         const std::vector<std::size_t>& colonnes) {
  TableauCompte ordonne{
      Matrice(lignes.size(), colonnes.size()),
      {Choisir(table.marges.lignes, lignes), Choisir(table.marges.colonnes, colonnes), table.marges.total},
      Choisir(table.rangsLignes, lignes),
      Choisir(table.rangsColonnes, colonnes)};
  for (std::size_t i = 0; i < lignes.size(); ++i)
    for (std::size_t j = 0; j < colonnes.size(); ++j) ordonne.effectifs(i, j) = table.effectifs(lignes[i], colonnes[j]);
  return ordonne;
}

TableauCompte AvecCellules(const TableauCompte& table, const Matrice& cellules) {
  return {cellules, table.marges, table.rangsLignes, table.rangsColonnes};
}

}  // namespace quelvar::crosstab
