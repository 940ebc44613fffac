// Ascending hierarchical classification by Ward's criterion, on numbers.
//
// J. H. Ward, "Hierarchical Grouping to Optimize an Objective Function", Journal of the American Statistical
// Association 58 (1963); the update of the distances is that of G. N. Lance and W. T. Williams, "A General Theory of
// Classificatory Sorting Strategies", The Computer Journal 9 (1967); both variants, on distances and on their squares,
// are compared by F. Murtagh and P. Legendre, "Ward's Hierarchical Agglomerative Clustering Method", Journal of
// Classification 31 (2014). Every element weighs 1. Ties go to the lowest numbers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "core/calcul/matrice.h"

namespace quelvar::factor {

enum class MethodeWard { Distances = 1, Carres = 2 };

// One merging. Elements are numbered from 1; an item is an element, or -s for what step s has made, steps from 1.
struct EtapeWard {
  std::int32_t premier = 0;  // the smaller of the two merged elements, which stands for both from then on
  std::int32_t second = 0;
  std::int32_t itemPremier = 0;
  std::int32_t itemSecond = 0;
  double critere = 0;  // in units of distance
};

// How a step changes the number of classes: two elements make a new one, two classes become one.
inline int ChangementDeClasses(const EtapeWard& etape) {
  return (etape.itemPremier > 0 ? 1 : 0) + (etape.itemSecond > 0 ? 1 : 0) - 1;
}

// The classes that a step leaves, and the share of the criteria up to it, percent; 0 when all are 0.
struct BilanDEtape {
  int classes = 0;
  double cumul = 0;
};
std::vector<BilanDEtape> BilanDesEtapes(std::span<const EtapeWard> etapes);

// The n - 1 steps of the tree over the points (factors x elements, one row a factor); fewer when what is left is 100000
// or more apart, which no scan takes. `suivre` is told the number of steps done. Raises std::bad_alloc when the
// n (n - 1) / 2 distances do not fit the memory.
std::vector<EtapeWard> ClasserPoints(const Matrice& points, MethodeWard methode,
                                     const std::function<void(std::int64_t)>& suivre);

// The elements in an order where what each step has made stands together, the first item before the second.
struct MembresWard {
  std::vector<std::int32_t> ordre;
  std::vector<std::size_t> debuts;   // by step
  std::vector<std::size_t> tailles;  // by step

  std::span<const std::int32_t> DeLEtape(std::size_t etape) const {
    return std::span(ordre).subspan(debuts[etape], tailles[etape]);
  }
};
MembresWard MembresDesEtapes(std::span<const EtapeWard> etapes);

// The steps, counted from 0, whose classes are left at a level: those among the first `niveau` that no other of them
// has taken over.
std::vector<std::size_t> EtapesRestantes(std::span<const EtapeWard> etapes, std::size_t niveau);

}  // namespace quelvar::factor
