// Names of the rows, columns and modalities of a table, and the label that an edition shows for them.
#pragma once

#include <string>
#include <string_view>

#include "core/enquete/brtfile.h"
#include "core/enquete/modfile.h"

namespace quelvar::tables {

struct NomDElement {
  std::string court;     // 4 characters, padded on the right
  std::string intitule;  // at most 25 characters; the short name when the file has no label
};

NomDElement NommerModalite(const Modalite& modalite);
NomDElement NommerLigne(const LigneBrt& ligne);

// Longs: the long label, and profiles in wide columns. The others are for compact editions: the short name, or the
// first 4 characters of the long label.
enum class ModeIntitules { Longs, Courts, QuatreCaracteres };

// The label of an edition; a view into the name.
std::string_view IntituleEdite(const NomDElement& nom, ModeIntitules mode);

}  // namespace quelvar::tables
