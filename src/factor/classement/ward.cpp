#include "factor/classement/ward.h"

#include <sys/mman.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <memory>
#include <new>
#include <numeric>

namespace quelvar::factor {

namespace {

constexpr double kLointain = 100000;  // from this distance on nothing is a neighbour
constexpr std::size_t kAvance = 16;   // elements between asking the memory for a distance and its use
constexpr double kAbsent = std::numeric_limits<double>::infinity();

// The distances of the pairs i < j, row by row. A merging walks down two columns, a jump of memory for each element:
// large pages, where the system has them, halve its time.
class DemiMatrice {
 public:
  explicit DemiMatrice(std::size_t n) : n_(n) {
    constexpr std::size_t kPage = std::size_t{1} << 21;
    const std::size_t octets = ((n * (n - 1) / 2 + 1) * sizeof(double) + kPage - 1) / kPage * kPage;
    valeurs_.reset(static_cast<double*>(std::aligned_alloc(kPage, octets)));
    if (!valeurs_) throw std::bad_alloc();
#ifdef MADV_HUGEPAGE
    ::madvise(valeurs_.get(), octets, MADV_HUGEPAGE);
#endif
  }

  // To be indexed by j > i only.
  double* Ligne(std::size_t i) { return valeurs_.get() + (i * n_ - i * (i + 1) / 2 - i); }

 private:
  struct Liberation {
    void operator()(double* valeurs) const { std::free(valeurs); }
  };
  std::size_t n_;
  std::unique_ptr<double[], Liberation> valeurs_;
};

// Place of the first smallest value below the bound, or the number of values.
std::size_t PremierMinimum(const double* valeurs, std::size_t nombre, double borne) {
  constexpr std::size_t kVoies = 8;
  double minima[kVoies];
  std::fill(minima, minima + kVoies, borne);
  std::size_t i = 0;
  for (; i + kVoies <= nombre; i += kVoies)
    for (std::size_t v = 0; v < kVoies; ++v) minima[v] = valeurs[i + v] < minima[v] ? valeurs[i + v] : minima[v];
  for (; i < nombre; ++i) minima[0] = std::min(minima[0], valeurs[i]);
  const double minimum = *std::min_element(minima, minima + kVoies);
  if (minimum >= borne) return nombre;
  return static_cast<std::size_t>(std::find(valeurs, valeurs + nombre, minimum) - valeurs);
}

// The classification under way. Elements are counted from 0 here.
//
// Each active element keeps its nearest neighbour among those behind it. A merging into a makes every k below a with a
// new distance above its record look for its neighbour anew; that search gives the record back as it was, unless the
// record names a or b, or an equal distance to a lower neighbour was passed over before. Only those are searched.
class Classification {
 public:
  Classification(const Matrice& points, MethodeWard methode);
  std::vector<EtapeWard> Agreger(const std::function<void(std::int64_t)>& suivre);

 private:
  void CalculerDistances(const Matrice& points);
  void ChercherVoisin(std::size_t i);
  void Fusionner(std::size_t a, std::size_t b);
  bool ActualiserAvant(std::size_t k, std::size_t a, std::size_t b, double v);
  double NouvelleDistance(std::size_t k, double ka, double kb) const {
    return ((tailles_[k] + ta_) * ka + (tailles_[k] + tb_) * kb - tailles_[k] * ab_) / (tailles_[k] + ta_ + tb_);
  }

  std::size_t n_;
  MethodeWard methode_;
  DemiMatrice distances_;
  std::vector<double> tailles_;
  std::vector<double> proches_;       // distance of the nearest neighbour; kAbsent for a merged element
  std::vector<std::size_t> voisins_;  // n for none
  std::vector<char> douteux_;         // a lower or nearer neighbour was passed over
  std::vector<std::size_t> actifs_;   // ascending
  std::vector<std::size_t> aRevoir_;
  double ta_ = 0, tb_ = 0, ab_ = 0;  // of the merging under way
};

Classification::Classification(const Matrice& points, MethodeWard methode)
    : n_(points.Colonnes()),
      methode_(methode),
      distances_(n_),
      tailles_(n_, 1),
      proches_(n_, kAbsent),
      voisins_(n_, n_),
      douteux_(n_, 0),
      actifs_(n_) {
  std::iota(actifs_.begin(), actifs_.end(), std::size_t{0});
  CalculerDistances(points);
  for (std::size_t i = 0; i + 1 < n_; ++i) ChercherVoisin(i);
}

void Classification::CalculerDistances(const Matrice& points) {
  for (std::size_t i = 0; i + 1 < n_; ++i) {
    double* ligne = distances_.Ligne(i);
    std::fill(ligne + i + 1, ligne + n_, 0.0);
    for (std::size_t f = 0; f < points.Lignes(); ++f) {
      const double* x = points.Ligne(f).data();
      for (std::size_t j = i + 1; j < n_; ++j) ligne[j] += (x[j] - x[i]) * (x[j] - x[i]);
    }
    for (std::size_t j = i + 1; j < n_; ++j) ligne[j] = std::sqrt(ligne[j]);
    if (methode_ == MethodeWard::Carres)
      for (std::size_t j = i + 1; j < n_; ++j) ligne[j] *= ligne[j];
  }
}

void Classification::ChercherVoisin(std::size_t i) {
  const double* ligne = distances_.Ligne(i);
  const std::size_t voisin = i + 1 + PremierMinimum(ligne + i + 1, n_ - i - 1, kLointain);
  voisins_[i] = voisin;
  proches_[i] = voisin < n_ ? ligne[voisin] : kLointain;
  douteux_[i] = 0;
}

// Takes note of the new distance v between k and a, k below a; true when the neighbour of k must be looked for.
bool Classification::ActualiserAvant(std::size_t k, std::size_t a, std::size_t b, double v) {
  if (voisins_[k] == a || voisins_[k] == b) return true;
  if (v > proches_[k]) return douteux_[k] != 0;
  if (v < proches_[k] || a < voisins_[k]) douteux_[k] = 1;
  return false;
}

void Classification::Fusionner(std::size_t a, std::size_t b) {
  double* ligneA = distances_.Ligne(a);
  double* ligneB = distances_.Ligne(b);
  ab_ = ligneA[b];
  ta_ = tailles_[a];
  tb_ = tailles_[b];
  aRevoir_.clear();
  for (std::size_t rang = 0; actifs_[rang] < b; ++rang) {
    // Asks the memory for what an element further on will need. Not in a function of its own: one that does nothing
    // else has no effect in the compiler's eyes, and its calls are dropped.
    if (rang + kAvance < actifs_.size()) {
      const std::size_t suivant = actifs_[rang + kAvance];
      const double* ligne = distances_.Ligne(suivant);
      if (suivant < a) __builtin_prefetch(ligne + a, 1);
      if (suivant < b) __builtin_prefetch(ligne + b, 1);
    }
    const std::size_t k = actifs_[rang];
    if (k == a) continue;
    double* ligneK = distances_.Ligne(k);
    double& ka = k < a ? ligneK[a] : ligneA[k];
    ka = NouvelleDistance(k, ka, ligneK[b]);
    ligneK[b] = kAbsent;
    if (k < a ? ActualiserAvant(k, a, b, ka) : voisins_[k] == b) aRevoir_.push_back(k);
  }
  ligneA[b] = kAbsent;
  // A merged k stays at an infinite distance.
  for (std::size_t k = b + 1; k < n_; ++k) ligneA[k] = NouvelleDistance(k, ligneA[k], ligneB[k]);
  tailles_[a] += tb_;
  proches_[b] = kAbsent;
  actifs_.erase(std::lower_bound(actifs_.begin(), actifs_.end(), b));
  ChercherVoisin(a);
  for (const std::size_t k : aRevoir_) ChercherVoisin(k);
}

std::vector<EtapeWard> Classification::Agreger(const std::function<void(std::int64_t)>& suivre) {
  std::vector<EtapeWard> etapes;
  etapes.reserve(n_ - 1);
  std::vector<std::int32_t> items(n_);  // what stands for each element now
  std::iota(items.begin(), items.end(), 1);
  for (std::int32_t s = 1; actifs_.size() > 1; ++s) {
    const std::size_t i = PremierMinimum(proches_.data(), n_ - 1, kLointain);
    if (i == n_ - 1) break;
    const std::size_t a = i;
    const std::size_t b = voisins_[i];
    const double critere = methode_ == MethodeWard::Carres ? std::sqrt(proches_[i]) : proches_[i];
    etapes.push_back({static_cast<std::int32_t>(a + 1), static_cast<std::int32_t>(b + 1), items[a], items[b], critere});
    items[a] = -s;
    Fusionner(a, b);
    if ((s & 0x3F) == 0) suivre(s);
  }
  return etapes;
}

}  // namespace

std::vector<EtapeWard> ClasserPoints(const Matrice& points, MethodeWard methode,
                                     const std::function<void(std::int64_t)>& suivre) {
  if (points.Colonnes() < 2) return {};
  return Classification(points, methode).Agreger(suivre);
}

std::vector<BilanDEtape> BilanDesEtapes(std::span<const EtapeWard> etapes) {
  double total = 0;
  for (const EtapeWard& etape : etapes) total += etape.critere;
  std::vector<BilanDEtape> bilans;
  bilans.reserve(etapes.size());
  double somme = 0;
  int classes = 0;
  for (const EtapeWard& etape : etapes) {
    somme += etape.critere;
    classes += ChangementDeClasses(etape);
    bilans.push_back({classes, total == 0 ? 0 : 100 * somme / total});
  }
  return bilans;
}

MembresWard MembresDesEtapes(std::span<const EtapeWard> etapes) {
  constexpr std::size_t kNonPlacee = std::numeric_limits<std::size_t>::max();
  MembresWard membres;
  membres.debuts.assign(etapes.size(), kNonPlacee);
  membres.tailles.resize(etapes.size());
  const auto etapeDe = [](std::int32_t item) { return static_cast<std::size_t>(-item - 1); };
  const auto taille = [&](std::int32_t item) { return item > 0 ? 1 : membres.tailles[etapeDe(item)]; };
  for (std::size_t s = 0; s < etapes.size(); ++s)
    membres.tailles[s] = taille(etapes[s].itemPremier) + taille(etapes[s].itemSecond);

  for (std::size_t s = etapes.size(); s-- > 0;) {
    std::size_t place = membres.debuts[s];
    if (place == kNonPlacee) {  // nothing has taken it over
      place = membres.debuts[s] = membres.ordre.size();
      membres.ordre.resize(place + membres.tailles[s]);
    }
    for (const std::int32_t item : {etapes[s].itemPremier, etapes[s].itemSecond}) {
      if (item > 0) membres.ordre[place] = item;
      else membres.debuts[etapeDe(item)] = place;
      place += taille(item);
    }
  }
  return membres;
}

std::vector<std::size_t> EtapesRestantes(std::span<const EtapeWard> etapes, std::size_t niveau) {
  const std::size_t nombre = std::min(niveau, etapes.size());
  std::vector<char> prises(nombre, 0);
  for (const EtapeWard& etape : etapes.first(nombre))
    for (const std::int32_t item : {etape.itemPremier, etape.itemSecond})
      if (item < 0) prises[static_cast<std::size_t>(-item - 1)] = 1;
  std::vector<std::size_t> restantes;
  for (std::size_t s = 0; s < nombre; ++s)
    if (prises[s] == 0) restantes.push_back(s);
  return restantes;
}

}  // namespace quelvar::factor
