// The result files that the menu "Affichage" shows.
#pragma once

#include <span>

namespace quelvar::forms {

enum class GenreDAffichage { Entier, Partiel, SousRegle };
struct EntreeDAffichage {
  const char* nom;        // of the action
  const char* extension;  // ".tap"
  GenreDAffichage genre = GenreDAffichage::Entier;
};
std::span<const EntreeDAffichage> EntreesDAffichage();

}  // namespace quelvar::forms
