// Pictures of percentages as bars: one line an element, to the right of a common zero, to the left below it.
#pragma once

#include <string>
#include <vector>

#include "core/dessin/dessin.h"

namespace quelvar {

struct Barre {
  std::string intitule;
  int pourCent = 0;   // from -100 to 100
  bool sure = false;  // filled; else its outline alone
};

struct GroupeDeBarres {
  std::string titre;
  std::vector<Barre> barres;
};

// One group below the other on a page in points, as high as they need; the elements are the ranks of the bars through
// all groups. The scale runs from -100 to 100, or from 0 when no bar is negative. `legende` stands under the last bar.
Dessin DessinerBarres(const std::vector<GroupeDeBarres>& groupes, const std::string& legende);

}  // namespace quelvar
