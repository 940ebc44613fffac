// Room for the labels of the triangular graph: what of the page is taken, and where a label goes beside its point.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "core/dessin/dessin.h"

namespace quelvar::tables {

// What is taken of a page, point by point: a bit for each square of one point, rows of words.
class PageOccupee {
 public:
  PageOccupee(double largeur, double hauteur);

  bool SurLaPage(const Zone& zone) const {
    return zone.x >= 0 && zone.y >= 0 && zone.x + zone.largeur <= largeur_ && zone.y + zone.hauteur <= hauteur_;
  }
  // Whether every square that the zone touches is free; false for one that leaves the page.
  bool Libre(const Zone& zone) const;
  void Prendre(const Zone& zone);
  // A line, point by point: no label is to lie across it.
  void PrendreTrait(Position de, Position a);

 private:
  static constexpr std::size_t kBits = 64;

  template <typename Action>
  bool Parcourir(const Zone& zone, const Action& action) const;

  double largeur_;
  double hauteur_;
  std::size_t colonnes_;
  std::size_t lignes_;
  std::size_t mots_;
  std::vector<std::uint64_t> bits_;
};

// A place of a label: how far from its point it is anchored, and by which of its sides.
struct PlaceDIntitule {
  double dx, dy;
  Ancre ancre;
  Niveau niveau;
};

// The one on the right, which a label that the user moves is moved from.
PlaceDIntitule PremierePlace();
// The first free place around a point; when none is, the first beside it on the page.
PlaceDIntitule ChoisirPlace(const PageOccupee& occupation, Position point, const std::string& texte,
                            const Police& police);

}  // namespace quelvar::tables
