// Profiles: for one node, the links that it stands in, by descending value, and their printing in blocks.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "core/resultats/rangees.h"
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

// Compact: labels of 4 characters. Long: labels of 10.
enum class LargeurDeProfil { Compacte, Longue };

// Prints profiles whose items are labelled by node, in blocks of items that go to the driver one after the other.
class ImprimeurDeProfils {
 public:
  // `intitules` gives the label of node 1, 2... and must outlive it.
  ImprimeurDeProfils(Rapport& rapport, std::span<const std::string_view> intitules, LargeurDeProfil largeur);
  ImprimeurDeProfils(const ImprimeurDeProfils&) = delete;
  ImprimeurDeProfils& operator=(const ImprimeurDeProfils&) = delete;

  // Prints the profile in blocks of 16 items; nothing for an empty one.
  void Imprimer(std::span<const Lien> profil);

 private:
  void ImprimerBloc(std::span<const Lien> liens);

  Rapport& rapport_;
  std::span<const std::string_view> intitules_;
  std::size_t colonnesDIntitule_;
  FormeEnRangees forme_;
  ImprimeurDeRangees imprimeur_;
  TableauEdite bloc_;  // a column an item; kept from one block to the next
};

}  // namespace quelvar::tables
