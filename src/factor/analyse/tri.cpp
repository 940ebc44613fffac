#include "factor/analyse/tri.h"

#include <algorithm>
#include <bit>
#include <limits>
#include <numeric>
#include <utility>

namespace quelvar::factor {

namespace {

// Minima of keys over aligned runs of places; a missing place is above every key.
class ArbreDeMinima {
 public:
  explicit ArbreDeMinima(std::span<const int> cles)
      : feuilles_(std::bit_ceil(std::max<std::size_t>(cles.size(), 1))),
        minima_(2 * feuilles_, std::numeric_limits<int>::max()) {
    std::copy(cles.begin(), cles.end(), minima_.begin() + static_cast<std::ptrdiff_t>(feuilles_));
    for (std::size_t noeud = feuilles_; --noeud > 0;) Recalculer(noeud);
  }

  int Cle(std::size_t place) const { return minima_[feuilles_ + place]; }
  std::size_t Places() const { return feuilles_; }

  void Poser(std::size_t place, int cle) {
    std::size_t noeud = feuilles_ + place;
    minima_[noeud] = cle;
    while ((noeud /= 2) > 0) Recalculer(noeud);
  }

  // First place behind `place` with a key below `borne`; Places() when there is none.
  std::size_t PremierSous(std::size_t place, int borne) const {
    std::size_t noeud = feuilles_ + place;
    // Up to the first run on the right that holds one, then down its left side.
    while (true) {
      while (noeud % 2 == 1) noeud /= 2;
      if (noeud == 0) return feuilles_;
      ++noeud;
      if (minima_[noeud] < borne) break;
    }
    while (noeud < feuilles_) noeud = minima_[2 * noeud] < borne ? 2 * noeud : 2 * noeud + 1;
    return noeud - feuilles_;
  }

 private:
  void Recalculer(std::size_t noeud) { minima_[noeud] = std::min(minima_[2 * noeud], minima_[2 * noeud + 1]); }

  std::size_t feuilles_;
  std::vector<int> minima_;
};

}  // namespace

std::vector<std::size_t> OrdreParEchanges(std::span<const int> cles) {
  std::vector<std::size_t> ordre(cles.size());
  std::iota(ordre.begin(), ordre.end(), std::size_t{0});
  ArbreDeMinima arbre(cles);
  for (std::size_t a = 0; a + 1 < cles.size(); ++a) {
    for (std::size_t b = arbre.PremierSous(a, arbre.Cle(a)); b < arbre.Places();
         b = arbre.PremierSous(b, arbre.Cle(a))) {
      const int cle = arbre.Cle(a);
      arbre.Poser(a, arbre.Cle(b));
      arbre.Poser(b, cle);
      std::swap(ordre[a], ordre[b]);
    }
  }
  return ordre;
}

}  // namespace quelvar::factor
