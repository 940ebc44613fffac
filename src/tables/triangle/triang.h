// Triang: the report of a triangular file, and its picture.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/programme/programme.h"
#include "tables/triangle/triangle.h"

namespace quelvar::tables {

// Reads generic and ".TRG" and prints it to generic and ".prt"; nothing when the run stopped. Points whose percentages
// do not make 100, and a file without points, are told by a box.
std::optional<FichierTrg> PrepTriang(const Contexte& contexte);

// The form is closed: the report ends and is shown.
Fin TerminerTriang(const Contexte& contexte);

// The texts of the picture go by a name: "titre", "sommet1" to "sommet3", or that of the point; "AGE1#2" is the second
// point of that name.
struct OptionsTriang {
  std::string fichier{};  // picture, in SVG; generic and "Trg.svg" when empty
  ReglagesTriangle reglages{};
  CotesTriangle cotes{};
  double largeur = 100, hauteur = 100, fenetre = 100;  // percent of the start
  int marque = 2;                                      // of the points, up to kDerniereMarque
  std::vector<std::string> invisibles{};
  std::vector<std::pair<std::string, std::string>> marques{};   // of single points
  std::vector<std::pair<std::string, std::string>> deplaces{};  // "DX/DY", points of the page to the right and down
  bool operator==(const OptionsTriang&) const = default;
};
// The options that draw what the form shows, and back.
OptionsTriang OptionsDuTriangle(const EtatTriangle& etat);
// Raises UsageIncorrect for a name that the picture lacks, or a setting that is none.
EtatTriangle ReglerTriangle(const OptionsTriang& options, FichierTrg trg);

// All of it without a form. Sides that leave no triangle, and names that the picture lacks, stop the run.
Fin Triang(const Contexte& contexte, const OptionsTriang& options);

}  // namespace quelvar::tables
