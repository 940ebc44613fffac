// The classification that may follow a factor analysis: points read from the coordinate files, report, tree file .CAH
// and steps file .CSV.
#pragma once

#include <cstddef>
#include <optional>

#include "core/fichiers/jeu.h"
#include "core/programme/programme.h"
#include "factor/classement/ward.h"

namespace quelvar::factor {

struct OptionsWard {
  MethodeWard methode = MethodeWard::Distances;
  bool individus = false;  // the lines of .FI2 instead of those of .FJ2
  bool etapesCsv = false;  // write the .CSV of the steps

  bool operator==(const OptionsWard&) const = default;
};

// Classifies the points of a coordinate file on that many factors, appends to the report and writes tree and steps into
// the set. With `derniers` only that many lines at the end of the file are taken, the individuals behind the modalities
// of a Burt table. Elements too far apart stop the run with a line.
void ClasserWard(const Contexte& contexte, Rapport& rapport, const Chemin& points, std::size_t facteurs,
                 const OptionsWard& options, std::optional<std::size_t> derniers, JeuDeFichiers& sorties);

}  // namespace quelvar::factor
