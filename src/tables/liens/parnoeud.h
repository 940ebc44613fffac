// Profiles: for one node, the links that it stands in, by descending value.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "tables/liens/liens.h"

namespace quelvar::tables {

// The links of each node: its profile, in the order of TrierProfil from that of the list.
class LiensParNoeud {
 public:
  // Which end of a link gives it to a node. A link of a Burt table belongs to both its ends.
  enum class Bout { Premier, Second, LesDeux };
  // `noeuds` is the largest node number.
  LiensParNoeud(std::span<const Lien> liens, Bout bout, std::size_t noeuds);

  // The profile of the node: links whose first node is the one at the other end.
  std::span<const Lien> Profil(std::size_t noeud) const {
    return std::span(liens_).subspan(debuts_[noeud], debuts_[noeud + 1] - debuts_[noeud]);
  }

 private:
  std::vector<std::size_t> debuts_;  // index: node
  std::vector<Lien> liens_;          // premier: the node at the other end
};

}  // namespace quelvar::tables
