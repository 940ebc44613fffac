#include "regression/anatab/souseffets.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

#include "core/programme/erreur.h"

namespace quelvar::regression {

namespace {

// The cells of every situation as numbers that are equal where the cells read the same.
std::vector<std::uint32_t> TextesDesCellules(const TableSituations& table, const std::vector<Cellule>& cellules) {
  std::vector<std::uint32_t> textes(table.modalites.size());
  std::transform(table.modalites.begin(), table.modalites.end(), textes.begin(),
                 [&](std::uint32_t k) { return static_cast<std::uint32_t>(cellules[k].texte); });
  return textes;
}

std::uint64_t HacherSauf(std::span<const std::uint32_t> textes, std::size_t sauf) {
  std::uint64_t h = 0x9E3779B97F4A7C15U;
  for (std::size_t c = 0; c < textes.size(); ++c) {
    h = (h ^ (c == sauf ? 0xFFFFFFFFU : textes[c])) * 0xFF51AFD7ED558CCDU;
    h ^= h >> 32;
  }
  return h;
}

bool EgalesSauf(std::span<const std::uint32_t> a, std::span<const std::uint32_t> b, std::size_t sauf) {
  for (std::size_t c = 0; c < a.size(); ++c)
    if (c != sauf && a[c] != b[c]) return false;
  return a[sauf] != b[sauf];
}

double Chances(double pourcentage) {
  if (pourcentage == 100) throw Erreur(kDivisionParZero);
  return pourcentage / (100 - pourcentage);
}

}  // namespace

std::vector<SousEffet> ChercherSousEffets(const TableSituations& table, const std::vector<Cellule>& cellules) {
  const std::vector<std::uint32_t> textes = TextesDesCellules(table, cellules);
  const std::size_t q = table.questions;
  const auto ligne = [&](std::uint32_t s) { return std::span(textes).subspan(s * q, q); };
  std::vector<SousEffet> trouves;
  std::vector<std::pair<std::uint64_t, std::uint32_t>> proches(table.situations.size());
  for (std::uint32_t c = 0; c < q; ++c) {
    const auto estReference = [&](std::uint32_t s) { return cellules[table.Modalites(s)[c]].reference; };
    for (std::uint32_t s = 0; s < proches.size(); ++s) proches[s] = {HacherSauf(ligne(s), c), s};
    std::sort(proches.begin(), proches.end());
    for (std::size_t i = 0; i < proches.size(); ++i)
      for (std::size_t j = i + 1; j < proches.size() && proches[j].first == proches[i].first; ++j) {
        const std::uint32_t a = proches[i].second;
        const std::uint32_t b = proches[j].second;
        if ((!estReference(a) && !estReference(b)) || !EgalesSauf(ligne(a), ligne(b), c)) continue;
        trouves.push_back({a, b, c, !estReference(a)});
      }
  }
  std::sort(trouves.begin(), trouves.end(), [](const SousEffet& a, const SousEffet& b) {
    return std::tie(a.premiere, a.seconde) < std::tie(b.premiere, b.seconde);
  });
  return trouves;
}

MesureSousEffet Mesurer(const SousEffet& sousEffet, const TableSituations& table, bool oddsRatio) {
  const Situation& reference = table.situations[sousEffet.Reference()];
  const Situation& comparee = table.situations[sousEffet.Comparee()];
  MesureSousEffet mesure;
  if (oddsRatio) {
    const double chancesReference = Chances(reference.pourcentage);
    if (chancesReference == 0) throw Erreur(kDivisionParZero);
    mesure.effet = Chances(comparee.pourcentage) / chancesReference;
  } else {
    mesure.effet = comparee.pourcentage - reference.pourcentage;
  }
  mesure.poids = reference.effectif + comparee.effectif;
  const Situation& a = table.situations[sousEffet.premiere];
  const Situation& b = table.situations[sousEffet.seconde];
  mesure.khi2 = KhiPaire(a.effectif, b.effectif, a.pourcentage * a.effectif / 100, b.pourcentage * b.effectif / 100);
  return mesure;
}

std::size_t ModaliteComparee(const SousEffet& sousEffet, const TableSituations& table,
                             const std::vector<Cellule>& cellules) {
  return cellules[table.Modalites(sousEffet.Comparee())[sousEffet.question]].designee;
}

bool Effet::EcartDepasseMoyenne() const { return ecartType > std::fabs(moyenne); }

std::vector<Effet> CalculerEffets(const std::vector<SousEffet>& sousEffets, const TableSituations& table,
                                  const std::vector<Cellule>& cellules, bool oddsRatio) {
  std::vector<Effet> parModalite(cellules.size());
  std::vector<std::pair<double, double>> sommes(cellules.size());  // of effect x weight, of effect^2 x weight
  for (std::uint32_t rang = 0; rang < sousEffets.size(); ++rang) {
    const MesureSousEffet mesure = Mesurer(sousEffets[rang], table, oddsRatio);
    const std::size_t k = ModaliteComparee(sousEffets[rang], table, cellules);
    parModalite[k].rangs.push_back(rang);
    parModalite[k].poids += mesure.poids;
    sommes[k].first += mesure.effet * mesure.poids;
    sommes[k].second += mesure.effet * mesure.effet * mesure.poids;
  }
  std::vector<Effet> effets;
  for (std::size_t k = 0; k + 1 < parModalite.size(); ++k) {  // the last one is the empty cell
    Effet& effet = parModalite[k];
    if (effet.rangs.empty()) continue;
    effet.modalite = k;
    effet.moyenne = sommes[k].first / effet.poids;
    const double variance = sommes[k].second / effet.poids - effet.moyenne * effet.moyenne;
    effet.ecartType = variance > 0 ? std::sqrt(variance) : 0;
    effets.push_back(std::move(effet));
  }
  return effets;
}

}  // namespace quelvar::regression
