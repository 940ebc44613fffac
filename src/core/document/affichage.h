// How Text1 shows a result file: whole or by its head, with a ruler of columns over it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/fichiers/fichiers.h"

namespace quelvar {

// Characters that a partial display shows at most, without and with a ruler in front of a longer file.
inline constexpr std::size_t kAffichagePartiel = 30000;
inline constexpr std::size_t kAffichageSousRegle = 28000;
// Columns of a ruler at most.
inline constexpr std::size_t kRegleMaximum = 1024;

// The ruler over a first line of that length: what it is, hundreds, tens, units, a line of "-"; each ended by CR LF.
std::string RegleDesPositions(std::size_t longueur);

struct AffichagePartiel {
  std::string texte;
  std::size_t lignesDeRegle = 0;  // lines of the ruler in front
  bool entier = true;             // the whole file is there
};
// The first characters of a file, under a ruler if one is asked for. Raises a failure of reading.
AffichagePartiel LirePartiel(const Chemin& chemin, bool avecRegle);

// How a result file is shown: one longer than kAffichageEntier goes to the viewer, the text box could not hold it.
inline constexpr std::uintmax_t kAffichageEntier = std::uintmax_t{8} << 20;
struct ResultatLu {
  enum class Etat { Montre, Vide, TropLong };
  Etat etat = Etat::Montre;
  std::string texte;  // the file, the question whether to delete it, or where to look at it
};
// Raises a failure of reading.
ResultatLu LireResultat(const Chemin& chemin);

}  // namespace quelvar
