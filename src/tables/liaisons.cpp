#include "tables/liaisons.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "core/erreur.h"
#include "core/nombres.h"
#include "crosstab/pemlocal.h"

namespace quelvar {

namespace {

constexpr std::size_t kLiensGardes = 2000;
constexpr float kIndexGarde = 80;
constexpr std::size_t kColonnesDuNumero = 5;

float EnSimple(double valeur) {
  const auto simple = static_cast<float>(valeur);
  if (!std::isfinite(simple)) throw Erreur(kDepassementCapacite);
  return simple;
}

// Nodes of the rows of a table in their present order.
std::vector<std::int16_t> NoeudsDesLignes(const TableauCompte& table) {
  std::vector<std::int16_t> noeuds;
  for (const std::size_t rang : table.rangsLignes)
    noeuds.push_back(NumeroDeNoeud(table.rangsColonnes.size() + rang + 1));
  return noeuds;
}

double Proximite(std::span<const double> a, std::span<const double> b) {
  double somme = 0;
  for (std::size_t j = 0; j < a.size(); ++j) somme += std::fabs(a[j] - b[j]);
  return 100 - somme / static_cast<double>(a.size());
}

}  // namespace

std::vector<Lien> LiensDesCellules(const TableauCompte& table, const Matrice& pem) {
  const std::vector<std::int16_t> noeuds = NoeudsDesLignes(table);
  std::vector<Lien> liens;
  for (std::size_t i = 0; i < pem.Lignes(); ++i)
    for (std::size_t j = 0; j < pem.Colonnes(); ++j)
      if (pem(i, j) > 0) liens.push_back({noeuds[i], NumeroDeNoeud(table.rangsColonnes[j] + 1), EnSimple(pem(i, j))});
  return liens;
}

std::vector<Lien> LiensEntreLignes(const TableauCompte& table, const Matrice& pem) {
  const std::vector<std::int16_t> noeuds = NoeudsDesLignes(table);
  std::vector<Lien> liens;
  for (std::size_t i = 0; i < pem.Lignes(); ++i)
    for (std::size_t k = i + 1; k < pem.Lignes(); ++k)
      liens.push_back({noeuds[i], noeuds[k], EnSimple(Proximite(pem.Ligne(i), pem.Ligne(k)))});
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
  for (std::size_t i = 0; i < modalites; ++i)
    for (std::size_t j = i + 1; j < modalites; ++j) {
      const AttractionLocale locale = PemLocal(individus, burt.totaux[i], burt.totaux[j], *cellule++);
      if (locale.pem > 0 && locale.khi2 > 0)
        liens.push_back({static_cast<std::int16_t>(i + 1), static_cast<std::int16_t>(j + 1), EnSimple(locale.pem)});
    }
  return liens;
}

std::vector<Lien> LiensDesCliques(std::span<const std::vector<std::size_t>> cliques, std::size_t lignes,
                                  std::size_t colonnes) {
  if (lignes > 0) NumeroDeNoeud(colonnes + lignes);
  std::vector<bool> ensemble(lignes * lignes);  // one flag a pair of rows
  for (const std::vector<std::size_t>& clique : cliques)
    for (const std::size_t a : clique) {
      if (a < 1 || a > lignes) throw Erreur(kIndiceHorsSelection);
      for (const std::size_t b : clique)
        if (a < b && b <= lignes) ensemble[(a - 1) * lignes + b - 1] = true;
    }
  std::vector<Lien> liens;
  for (std::size_t i = 0; i < lignes; ++i)
    for (std::size_t k = i + 1; k < lignes; ++k)
      if (ensemble[i * lignes + k])
        liens.push_back({NumeroDeNoeud(colonnes + i + 1), NumeroDeNoeud(colonnes + k + 1), 100});
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

}  // namespace quelvar
