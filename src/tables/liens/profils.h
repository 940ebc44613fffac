// The printing of profiles in blocks.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "core/resultats/rangees.h"
#include "tables/liens/liens.h"

namespace quelvar::tables {

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
