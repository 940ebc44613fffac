#include "tables/liens/liaisons.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "core/chiffres/nombres.h"
#include "core/panne/erreur.h"
#include "crosstab/tableau/pemlocal.h"

namespace quelvar::tables {

namespace {

// The two choices that the user has by these numbers.
constexpr std::size_t kLiensGardes = 2000;
constexpr float kIndexGarde = 80;
constexpr std::size_t kColonnesDuNumero = 5;

float EnSimple(double valeur) {
  const auto simple = static_cast<float>(valeur);
  if (!std::isfinite(simple)) throw Erreur(kDepassementCapacite);
  return simple;
}

// Nodes of the rows of a table in their present order.
std::vector<std::int16_t> NoeudsDesLignes(const crosstab::TableauCompte& table) {
  std::vector<std::int16_t> noeuds;
  for (const std::size_t rang : table.rangsLignes)
    noeuds.push_back(NumeroDeNoeud(table.rangsColonnes.size() + rang + 1));
  return noeuds;
}

// Some neighbouring rows, column after column, so that another row is compared with all of them in one pass while each
// sum keeps the order of the columns.
class GroupeDeLignes {
 public:
  static constexpr std::size_t kTaille = 8;
  using Sommes = std::array<double, kTaille>;

  // The rows from `premiere` on; behind the last one of the matrix, zeros.
  void Charger(const Matrice& pem, std::size_t premiere) {
    valeurs_.assign(pem.Colonnes(), {});
    for (std::size_t r = 0; r < std::min(kTaille, pem.Lignes() - premiere); ++r)
      for (std::size_t j = 0; j < pem.Colonnes(); ++j) valeurs_[j][r] = pem(premiere + r, j);
  }

  // Sums of the absolute differences from a row.
  Sommes Differences(std::span<const double> ligne) const {
    Sommes sommes{};
    for (std::size_t j = 0; j < ligne.size(); ++j)
      for (std::size_t r = 0; r < kTaille; ++r) sommes[r] += std::fabs(ligne[j] - valeurs_[j][r]);
    return sommes;
  }

 private:
  std::vector<Sommes> valeurs_;  // index: column, then row of the group
};

}  // namespace

std::vector<Lien> LiensDesCellules(const crosstab::TableauCompte& table, const Matrice& pem) {
  const std::vector<std::int16_t> noeuds = NoeudsDesLignes(table);
  std::vector<Lien> liens;
  for (std::size_t i = 0; i < pem.Lignes(); ++i)
    for (std::size_t j = 0; j < pem.Colonnes(); ++j)
      if (pem(i, j) > 0) liens.push_back({noeuds[i], NumeroDeNoeud(table.rangsColonnes[j] + 1), EnSimple(pem(i, j))});
  return liens;
}

std::vector<Lien> LiensEntreLignes(const crosstab::TableauCompte& table, const Matrice& pem) {
  const std::vector<std::int16_t> noeuds = NoeudsDesLignes(table);
  const std::size_t lignes = pem.Lignes();
  const auto colonnes = static_cast<double>(pem.Colonnes());
  std::vector<Lien> liens(lignes * (lignes - std::min<std::size_t>(lignes, 1)) / 2);
  GroupeDeLignes groupe;
  for (std::size_t premiere = 0; premiere < lignes; premiere += GroupeDeLignes::kTaille) {
    groupe.Charger(pem, premiere);
    const std::size_t fin = std::min(premiere + GroupeDeLignes::kTaille, lignes);
    for (std::size_t i = 0; i + 1 < fin; ++i) {
      const GroupeDeLignes::Sommes sommes = groupe.Differences(pem.Ligne(i));
      const std::size_t debut = i * (2 * lignes - i - 1) / 2;  // of the pairs of row i
      for (std::size_t k = std::max(i + 1, premiere); k < fin; ++k)
        liens[debut + k - i - 1] = {noeuds[i], noeuds[k], EnSimple(100 - sommes[k - premiere] / colonnes)};
    }
  }
  return liens;
}

void GarderMeilleurs(std::vector<Lien>& liens, ChoixDeLiens choix) {
  std::size_t gardes = liens.size();
  if (choix == ChoixDeLiens::DeuxMille) {
    gardes = std::min(gardes, kLiensGardes);
  } else if (choix == ChoixDeLiens::IndexDe80) {
    const auto fin =
        std::find_if(liens.begin(), liens.end(), [](const Lien& lien) { return lien.valeur < kIndexGarde; });
    gardes = static_cast<std::size_t>(fin - liens.begin());
  }
  liens.resize(gardes);
}

std::vector<Lien> LiensDuBurt(const DemiBurt& burt, double individus) {
  std::vector<Lien> liens;
  const std::size_t modalites = burt.totaux.size();
  if (modalites > 0) NumeroDeNoeud(modalites);
  const double* cellule = burt.cellules.data();
  std::size_t i = 0;
  std::size_t j = 0;
  // Of a cell that its two totals do not allow, the one that is less than the cell is wrong.
  const auto ligneFautive = [&] {
    if (individus == 0) return Lieu{};
    return Lieu{{}, static_cast<std::int64_t>(burt.totaux[j] < *cellule ? j + 1 : i + 1)};
  };
  Situer(ligneFautive, [&] {
    for (; i < modalites; ++i)
      for (j = i + 1; j < modalites; ++j, ++cellule) {
        const crosstab::AttractionLocale locale =
            crosstab::PemLocal(individus, burt.totaux[i], burt.totaux[j], *cellule);
        if (locale.pem > 0 && locale.khi2 > 0)
          liens.push_back({static_cast<std::int16_t>(i + 1), static_cast<std::int16_t>(j + 1), EnSimple(locale.pem)});
      }
  });
  return liens;
}

std::vector<Lien> LiensDesCliques(std::span<const std::vector<std::size_t>> cliques, std::size_t lignes,
                                  std::size_t colonnes) {
  if (lignes > 0) NumeroDeNoeud(colonnes + lignes);
  std::vector<bool> ensemble(lignes * lignes);  // one flag a pair of rows
  for (std::size_t c = 0; c < cliques.size(); ++c)
    for (const std::size_t a : cliques[c]) {
      if (a < 1 || a > lignes) throw Erreur(kIndiceHorsSelection).Situer({{}, static_cast<std::int64_t>(c) + 1});
      for (const std::size_t b : cliques[c])
        if (a < b && b <= lignes) ensemble[(a - 1) * lignes + b - 1] = true;
    }
  std::vector<Lien> liens;
  for (std::size_t i = 0; i < lignes; ++i)
    for (std::size_t k = i + 1; k < lignes; ++k)
      if (ensemble[i * lignes + k])
        liens.push_back({NumeroDeNoeud(colonnes + i + 1), NumeroDeNoeud(colonnes + k + 1), kValeurDansUneClique});
  return liens;
}

std::vector<std::size_t> LireClique(std::string_view ligne) {
  std::vector<std::size_t> rangs;
  std::string_view reste = RognerGauche(Milieu(ligne, kColonnesDuNumero + 1));
  while (!reste.empty()) {
    const std::size_t fin = std::min(reste.find(' '), reste.size());
    const double valeur = ArrondirPair(ValeurDe(reste.substr(0, fin)));
    if (valeur < 1 || valeur > std::numeric_limits<std::int16_t>::max()) throw Erreur(kIndiceHorsSelection);
    rangs.push_back(static_cast<std::size_t>(valeur));
    reste = RognerGauche(reste.substr(fin));
  }
  return rangs;
}

}  // namespace quelvar::tables
