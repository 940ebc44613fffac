#include "tables/tableaucompte.h"

#include <cmath>
#include <numeric>
#include <utility>

#include "core/programme/erreur.h"

namespace quelvar::tables {

TableauCompte Compter(Matrice effectifs) {
  TableauCompte table;
  table.totauxLignes.resize(effectifs.Lignes());
  table.totauxColonnes.resize(effectifs.Colonnes());
  for (std::size_t i = 0; i < effectifs.Lignes(); ++i)
    for (std::size_t j = 0; j < effectifs.Colonnes(); ++j) {
      table.totauxLignes[i] += effectifs(i, j);
      table.totauxColonnes[j] += effectifs(i, j);
      table.total += effectifs(i, j);
    }
  if (!std::isfinite(table.total)) throw Erreur(kDepassementCapacite);
  table.rangsLignes.resize(effectifs.Lignes());
  table.rangsColonnes.resize(effectifs.Colonnes());
  std::iota(table.rangsLignes.begin(), table.rangsLignes.end(), std::size_t{0});
  std::iota(table.rangsColonnes.begin(), table.rangsColonnes.end(), std::size_t{0});
  table.effectifs = std::move(effectifs);
  return table;
}

TableauCompte Reordonner(const TableauCompte& table, const std::vector<std::size_t>& lignes,
                         const std::vector<std::size_t>& colonnes) {
  TableauCompte ordonne;
  ordonne.total = table.total;
  ordonne.effectifs = Matrice(lignes.size(), colonnes.size());
  for (const std::size_t i : lignes) {
    ordonne.totauxLignes.push_back(table.totauxLignes[i]);
    ordonne.rangsLignes.push_back(table.rangsLignes[i]);
  }
  for (const std::size_t j : colonnes) {
    ordonne.totauxColonnes.push_back(table.totauxColonnes[j]);
    ordonne.rangsColonnes.push_back(table.rangsColonnes[j]);
  }
  for (std::size_t i = 0; i < lignes.size(); ++i)
    for (std::size_t j = 0; j < colonnes.size(); ++j) ordonne.effectifs(i, j) = table.effectifs(lignes[i], colonnes[j]);
  return ordonne;
}

}  // namespace quelvar::tables
