#include "regression/anatab/souseffets.h"

#include <algorithm>
#include <cmath>
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

// The sub-effects of one question come in their order already.
void Ranger(std::vector<SousEffet>& trouves) {
  const auto parSeconde = [](const SousEffet& a, const SousEffet& b) { return a.seconde < b.seconde; };
  if (!std::is_sorted(trouves.begin(), trouves.end(), parSeconde))
    std::sort(trouves.begin(), trouves.end(), parSeconde);
}

double Chances(double pourcentage) {
  if (pourcentage == 100) throw Erreur(kDivisionParZero);
  return pourcentage / (100 - pourcentage);
}

}  // namespace

Voisinages VoisinagesDe(const TableSituations& table, const std::vector<Cellule>& cellules) {
  const std::size_t q = table.questions;
  const std::size_t situations = table.situations.size();
  Voisinages voisinages{TextesDesCellules(table, cellules), {}, {}, {}};
  for (std::vector<std::uint32_t>* liste : {&voisinages.ordre, &voisinages.places, &voisinages.fins})
    liste->resize(q * situations);
  std::vector<std::pair<std::uint64_t, std::uint32_t>> proches(situations);
  for (std::size_t c = 0; c < q; ++c) {
    const std::size_t base = c * situations;
    for (std::uint32_t s = 0; s < situations; ++s)
      proches[s] = {HacherSauf(std::span(voisinages.textes).subspan(s * q, q), c), s};
    std::sort(proches.begin(), proches.end());
    for (std::size_t i = 0, fin = 0; i < situations; ++i) {
      if (i == fin)
        while (fin < situations && proches[fin].first == proches[i].first) ++fin;
      voisinages.ordre[base + i] = proches[i].second;
      voisinages.places[base + proches[i].second] = static_cast<std::uint32_t>(i);
      voisinages.fins[base + proches[i].second] = static_cast<std::uint32_t>(fin);
    }
  }
  return voisinages;
}

namespace {

// The sub-effects of a first situation with the second ones behind it, in one question, by ascending second one.
template <typename Retenir, typename Visiter>
void PairesDe(const TableSituations& table, const std::vector<Cellule>& cellules, const Voisinages& voisinages,
              std::uint32_t a, std::uint32_t c, const Retenir& retenir, const Visiter& visiter) {
  const std::size_t q = table.questions;
  const std::size_t base = c * table.situations.size();
  const auto ligne = [&](std::uint32_t s) { return std::span(voisinages.textes).subspan(s * q, q); };
  const Cellule& deA = cellules[table.Modalites(a)[c]];
  for (std::size_t i = voisinages.places[base + a] + 1; i < voisinages.fins[base + a]; ++i) {
    const std::uint32_t b = voisinages.ordre[base + i];
    const Cellule& deB = cellules[table.Modalites(b)[c]];
    if (!deA.reference && !deB.reference) continue;
    if (!retenir(deA.reference ? deB : deA) || !EgalesSauf(ligne(a), ligne(b), c)) continue;
    visiter(SousEffet{a, b, c, !deA.reference});
  }
}

}  // namespace

void ParcourirSousEffets(const TableSituations& table, const std::vector<Cellule>& cellules,
                         const Voisinages& voisinages, const Visiteur& visiter) {
  std::vector<SousEffet> trouves;
  for (std::uint32_t a = 0; a < table.situations.size(); ++a) {
    trouves.clear();
    for (std::uint32_t c = 0; c < table.questions; ++c)
      PairesDe(
          table, cellules, voisinages, a, c, [](const Cellule&) { return true; },
          [&](const SousEffet& sousEffet) { trouves.push_back(sousEffet); });
    Ranger(trouves);
    for (const SousEffet& sousEffet : trouves) visiter(sousEffet);
  }
}

void ParcourirSousEffets(const TableSituations& table, const std::vector<Cellule>& cellules,
                         const Voisinages& voisinages, std::size_t modalite, const Visiteur& visiter) {
  // The questions in which that modality may be the compared one: labels that read the same lead to one modality.
  std::vector<bool> concernees(table.questions);
  for (std::size_t i = 0; i < table.modalites.size(); ++i)
    if (cellules[table.modalites[i]].designee == modalite) concernees[i % table.questions] = true;
  std::vector<SousEffet> trouves;
  for (std::uint32_t a = 0; a < table.situations.size(); ++a) {
    trouves.clear();
    for (std::uint32_t c = 0; c < table.questions; ++c) {
      if (!concernees[c]) continue;
      PairesDe(
          table, cellules, voisinages, a, c,
          [modalite](const Cellule& comparee) { return comparee.designee == modalite; },
          [&](const SousEffet& sousEffet) { trouves.push_back(sousEffet); });
    }
    Ranger(trouves);
    for (const SousEffet& sousEffet : trouves) visiter(sousEffet);
  }
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

bool Effet::EcartDepasseMoyenne() const { return ecartType > std::fabs(moyenne); }

std::vector<Effet> CalculerEffets(const TableSituations& table, const std::vector<Cellule>& cellules,
                                  const Voisinages& voisinages, bool oddsRatio) {
  std::vector<Effet> effets;
  for (std::size_t k = 0; k < cellules.size(); ++k) {
    Effet effet;
    effet.modalite = k;
    double produits = 0;  // of effect and weight
    double carres = 0;    // of effect^2 and weight
    ParcourirSousEffets(table, cellules, voisinages, k, [&](const SousEffet& sousEffet) {
      const MesureSousEffet mesure = Mesurer(sousEffet, table, oddsRatio);
      ++effet.nombre;
      effet.minimum.effet = std::min(effet.minimum.effet, mesure.effet);
      effet.maximum.effet = std::max(effet.maximum.effet, mesure.effet);
      effet.maximum.poids = std::max(effet.maximum.poids, mesure.poids);
      effet.maximum.khi2.khi2 = std::max(effet.maximum.khi2.khi2, mesure.khi2.khi2);
      effet.poids += mesure.poids;
      produits += mesure.effet * mesure.poids;
      carres += mesure.effet * mesure.effet * mesure.poids;
    });
    // The last cell is the empty one: its sub-effects are measured, and are the effect of no modality.
    if (effet.nombre == 0 || k + 1 == cellules.size()) continue;
    effet.moyenne = produits / effet.poids;
    const double variance = carres / effet.poids - effet.moyenne * effet.moyenne;
    effet.ecartType = variance > 0 ? std::sqrt(variance) : 0;
    effets.push_back(effet);
  }
  return effets;
}

}  // namespace quelvar::regression
