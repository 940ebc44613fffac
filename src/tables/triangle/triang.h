// Triang: the report of a triangular file, and its picture.
#pragma once

#include <optional>
#include <string>

#include "core/programme/programme.h"
#include "tables/triangle/triangle.h"

namespace quelvar::tables {

// Reads generic and ".TRG" and prints it to generic and ".prt"; nothing when the run stopped. Points whose percentages
// do not make 100, and a file without points, are told by a box.
std::optional<FichierTrg> PrepTriang(const Contexte& contexte);

// The form is closed: the report ends and is shown.
Fin TerminerTriang(const Contexte& contexte);

struct OptionsTriang {
  std::string fichier;  // picture, in SVG; generic and "Trg.svg" when empty
  ReglagesTriangle reglages;
  CotesTriangle cotes;
  int largeur = 100, hauteur = 100, fenetre = 100;  // percent of the start
  int marque = 2;                                   // of the points, 0 to 5
  bool operator==(const OptionsTriang&) const = default;
};
// All of it without a form. Sides that leave no triangle stop the run.
Fin Triang(const Contexte& contexte, const OptionsTriang& options);

}  // namespace quelvar::tables
