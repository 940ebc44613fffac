// A file too long to be shown whole, read in parts that break between lines.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "core/fichiers/fichiers.h"

namespace quelvar {

// Parts of about `taille` bytes of a file of that length; at least one.
std::size_t NombreDeParties(std::uintmax_t longueurFichier, std::uintmax_t taille);
// The bytes of a part counted from 0, an empty text past the end of the file. A line longer than a part is broken.
// Raises a failure of reading.
std::string LirePartie(const Chemin& chemin, std::size_t rang, std::uintmax_t taille);

}  // namespace quelvar
