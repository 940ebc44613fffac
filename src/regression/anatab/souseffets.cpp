#include "regression/anatab/souseffets.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <span>

#include "core/calcul/hachage.h"
#include "core/panne/erreur.h"

namespace quelvar::regression {

namespace {

// The cells of every situation as numbers that are equal where the cells read the same.
std::vector<std::uint32_t> TextesDesCellules(const TableSituations& table,
                                             const std::vector<CelluleDeSituation>& cellules) {
  std::vector<std::uint32_t> textes(table.modalites.size());
  std::transform(table.modalites.begin(), table.modalites.end(), textes.begin(),
                 [&](std::uint32_t k) { return static_cast<std::uint32_t>(cellules[k].texte); });
  return textes;
}

std::uint64_t HacherSauf(std::span<const std::uint32_t> textes, std::size_t sauf) {
  constexpr std::uint32_t kAucunTexte = std::numeric_limits<std::uint32_t>::max();
  std::uint64_t hachage = kNombreDOr;
  for (std::size_t c = 0; c < textes.size(); ++c) hachage = Meler(hachage, c == sauf ? kAucunTexte : textes[c]);
  return hachage;
}

// Order of two situations that brings together those that agree in all questions but one.
class OrdreSauf {
 public:
  OrdreSauf(std::span<const std::uint32_t> textes, std::size_t questions, std::size_t sauf)
      : textes_(textes), questions_(questions), sauf_(sauf) {
    hachages_.reserve(textes.size() / questions);
    for (std::size_t s = 0; s < textes.size() / questions; ++s) hachages_.push_back(HacherSauf(Ligne(s), sauf));
  }

  // -1, 0 or 1. The hash only spares most of the comparisons.
  int Comparer(std::uint32_t a, std::uint32_t b) const {
    if (hachages_[a] != hachages_[b]) return hachages_[a] < hachages_[b] ? -1 : 1;
    const std::span<const std::uint32_t> deA = Ligne(a);
    const std::span<const std::uint32_t> deB = Ligne(b);
    for (std::size_t c = 0; c < questions_; ++c)
      if (c != sauf_ && deA[c] != deB[c]) return deA[c] < deB[c] ? -1 : 1;
    return 0;
  }

 private:
  std::span<const std::uint32_t> Ligne(std::size_t s) const { return textes_.subspan(s * questions_, questions_); }

  std::span<const std::uint32_t> textes_;
  std::size_t questions_;
  std::size_t sauf_;
  std::vector<std::uint64_t> hachages_;
};

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

Voisinages VoisinagesDe(const TableSituations& table, const std::vector<CelluleDeSituation>& cellules) {
  const std::size_t q = table.questions;
  const std::size_t situations = table.situations.size();
  const std::vector<std::uint32_t> textes = TextesDesCellules(table, cellules);
  Voisinages voisinages;
  for (std::vector<std::uint32_t>* liste :
       {&voisinages.ordre, &voisinages.modalites, &voisinages.places, &voisinages.fins})
    liste->resize(q * situations);
  for (std::size_t c = 0; c < q; ++c) {
    const OrdreSauf ordre(textes, q, c);
    const std::span<std::uint32_t> proches = std::span(voisinages.ordre).subspan(c * situations, situations);
    std::iota(proches.begin(), proches.end(), std::uint32_t{0});
    std::sort(proches.begin(), proches.end(), [&ordre](std::uint32_t a, std::uint32_t b) {
      const int comparaison = ordre.Comparer(a, b);
      return comparaison < 0 || (comparaison == 0 && a < b);
    });
    const std::size_t base = c * situations;
    for (std::size_t i = 0, fin = 0; i < situations; ++i) {
      if (i == fin)
        while (fin < situations && ordre.Comparer(proches[fin], proches[i]) == 0) ++fin;
      voisinages.modalites[base + i] = table.Modalites(proches[i])[c];
      voisinages.places[base + proches[i]] = static_cast<std::uint32_t>(i);
      voisinages.fins[base + proches[i]] = static_cast<std::uint32_t>(fin);
    }
  }
  return voisinages;
}

namespace {

// The sub-effects of a first situation with the second ones behind it, in one question, by ascending second one.
template <typename Retenir, typename Visiter>
void PairesDe(const TableSituations& table, const std::vector<CelluleDeSituation>& cellules,
              const Voisinages& voisinages, std::uint32_t a, std::uint32_t c, const Retenir& retenir,
              const Visiter& visiter) {
  const std::size_t base = c * table.situations.size();
  const CelluleDeSituation& deA = cellules[table.Modalites(a)[c]];
  for (std::size_t i = voisinages.places[base + a] + 1; i < voisinages.fins[base + a]; ++i) {
    const CelluleDeSituation& deB = cellules[voisinages.modalites[base + i]];
    if (deA.texte == deB.texte || (!deA.reference && !deB.reference)) continue;
    if (retenir(deA.reference ? deB : deA)) visiter(SousEffet{a, voisinages.ordre[base + i], c, !deA.reference});
  }
}

}  // namespace

void ParcourirSousEffets(const TableSituations& table, const std::vector<CelluleDeSituation>& cellules,
                         const Voisinages& voisinages, const Visiteur& visiter) {
  std::vector<SousEffet> trouves;
  for (std::uint32_t a = 0; a < table.situations.size(); ++a) {
    trouves.clear();
    for (std::uint32_t c = 0; c < table.questions; ++c)
      PairesDe(
          table, cellules, voisinages, a, c, [](const CelluleDeSituation&) { return true; },
          [&](const SousEffet& sousEffet) { trouves.push_back(sousEffet); });
    Ranger(trouves);
    for (const SousEffet& sousEffet : trouves) visiter(sousEffet);
  }
}

void ParcourirSousEffets(const TableSituations& table, const std::vector<CelluleDeSituation>& cellules,
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
          [modalite](const CelluleDeSituation& comparee) { return comparee.designee == modalite; },
          [&](const SousEffet& sousEffet) { trouves.push_back(sousEffet); });
    }
    Ranger(trouves);
    for (const SousEffet& sousEffet : trouves) visiter(sousEffet);
  }
}

namespace {

double EffetDe(const SousEffet& sousEffet, const TableSituations& table, MesureDEffet mesure) {
  const double reference = table.situations[sousEffet.Reference()].pourcentage;
  const double comparee = table.situations[sousEffet.Comparee()].pourcentage;
  if (mesure == MesureDEffet::Points) return comparee - reference;
  const double chancesReference = Chances(reference);
  if (chancesReference == 0) throw Erreur(kDivisionParZero);
  return Chances(comparee) / chancesReference;
}

Khi2Paire Khi2De(const SousEffet& sousEffet, const TableSituations& table) {
  const Situation& a = table.situations[sousEffet.premiere];
  const Situation& b = table.situations[sousEffet.seconde];
  return KhiPaire(a.effectif, b.effectif, a.OuiConserve(), b.OuiConserve());
}

// What the chi-square of a sub-effect may come to, at most. It is never above the weight: that of few individuals
// cannot widen its column, and needs no computing before it is printed, if only it can be computed.
double PlafondDuKhi2(const SousEffet& sousEffet, const TableSituations& table, double poids) {
  constexpr double kPoidsLeger = 90;  // below 100, which asks the column for a third digit
  if (poids >= kPoidsLeger) return Khi2De(sousEffet, table).khi2;
  const double oui =
      table.situations[sousEffet.premiere].OuiConserve() + table.situations[sousEffet.seconde].OuiConserve();
  if (oui == 0 || oui == poids) throw Erreur(kDivisionParZero);
  return poids;
}

}  // namespace

MesureSousEffet Mesurer(const SousEffet& sousEffet, const TableSituations& table, MesureDEffet mesure) {
  MesureSousEffet mesures;
  mesures.effet = EffetDe(sousEffet, table, mesure);
  mesures.poids = table.situations[sousEffet.premiere].effectif + table.situations[sousEffet.seconde].effectif;
  mesures.khi2 = Khi2De(sousEffet, table);
  return mesures;
}

bool Effet::EcartDepasseMoyenne() const { return ecartType > std::fabs(moyenne); }

std::vector<Effet> CalculerEffets(const TableSituations& table, const std::vector<CelluleDeSituation>& cellules,
                                  const Voisinages& voisinages, MesureDEffet mesure) {
  std::vector<Effet> effets;
  for (std::size_t k = 0; k < cellules.size(); ++k) {
    Effet effet;
    effet.modalite = k;
    double produits = 0;  // of effect and weight
    double carres = 0;    // of effect^2 and weight
    ParcourirSousEffets(table, cellules, voisinages, k, [&](const SousEffet& sousEffet) {
      const double valeur = EffetDe(sousEffet, table, mesure);
      const double poids = table.situations[sousEffet.premiere].effectif + table.situations[sousEffet.seconde].effectif;
      ++effet.nombre;
      effet.minimum = std::min(effet.minimum, valeur);
      effet.maximum = std::max(effet.maximum, valeur);
      effet.poidsMaximum = std::max(effet.poidsMaximum, poids);
      effet.khi2Maximum = std::max(effet.khi2Maximum, PlafondDuKhi2(sousEffet, table, poids));
      effet.poids += poids;
      produits += valeur * poids;
      carres += valeur * valeur * poids;
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
