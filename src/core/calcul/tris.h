// The heap sort of all programs: its steps are fixed, since they decide in which order equal keys are printed.
#pragma once

#include <cstddef>
#include <span>
#include <utility>

namespace quelvar {

namespace detail {

// Puts the element at a place of the heap and lets it sink towards the child that stands last in the order, as long
// as that child stands behind it.
template <typename T, typename Avant>
void Enfoncer(std::span<T> tas, std::size_t place, T element, const Avant& avant) {
  for (std::size_t fils = 2 * place + 1; fils < tas.size(); fils = 2 * place + 1) {
    if (fils + 1 < tas.size() && avant(tas[fils], tas[fils + 1])) ++fils;
    if (!avant(element, tas[fils])) break;
    tas[place] = tas[fils];
    place = fils;
  }
  tas[place] = std::move(element);
}

}  // namespace detail

// Sorts in place so that `avant(a, b)` (a stands strictly before b) holds in the order. Not stable: of two children
// that are equal the left one is taken, and an element stops above an equal one. `suivre` is told, before each round,
// how many elements are still to be placed.
// Source: J. W. J. Williams, "Algorithm 232: Heapsort", Communications of the ACM 7 (1964).
template <typename T, typename Avant, typename Suivi>
void TrierParTas(std::span<T> elements, const Avant& avant, const Suivi& suivre) {
  if (elements.size() < 2) return;
  for (std::size_t place = elements.size() / 2; place-- > 0;)
    detail::Enfoncer(elements, place, T(elements[place]), avant);
  for (std::size_t reste = elements.size() - 1; reste > 0; --reste) {
    suivre(reste);
    T dernier = std::move(elements[reste]);
    elements[reste] = std::move(elements[0]);
    detail::Enfoncer(elements.first(reste), 0, std::move(dernier), avant);
  }
}

template <typename T, typename Avant>
void TrierParTas(std::span<T> elements, const Avant& avant) {
  TrierParTas(elements, avant, [](std::size_t) {});
}

}  // namespace quelvar
