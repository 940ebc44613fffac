#include "tables/liens/parnoeud.h"

#include <numeric>

namespace quelvar::tables {

LiensParNoeud::LiensParNoeud(std::span<const Lien> liens, Bout bout, std::size_t noeuds)
    : debuts_(noeuds + 2), liens_(bout == Bout::LesDeux ? 2 * liens.size() : liens.size()) {
  const auto visiter = [&](const auto& faire) {
    for (const Lien& lien : liens) {
      if (bout != Bout::Second) faire(static_cast<std::size_t>(lien.premier), lien.second, lien.valeur);
      if (bout != Bout::Premier) faire(static_cast<std::size_t>(lien.second), lien.premier, lien.valeur);
    }
  };
  visiter([&](std::size_t noeud, std::int16_t, float) { ++debuts_[noeud + 1]; });
  std::partial_sum(debuts_.begin(), debuts_.end(), debuts_.begin());
  std::vector<std::size_t> places(debuts_.begin(), debuts_.end() - 1);
  visiter([&](std::size_t noeud, std::int16_t autre, float valeur) {
    liens_[places[noeud]++] = {autre, static_cast<std::int16_t>(noeud), valeur};
  });
  for (std::size_t noeud = 0; noeud <= noeuds; ++noeud)
    TrierProfil(std::span(liens_).subspan(debuts_[noeud], debuts_[noeud + 1] - debuts_[noeud]));
}

}  // namespace quelvar::tables
