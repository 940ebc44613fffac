// The generic that an import makes: the one proposed for a file, what it would replace, what cannot be one.
#pragma once

#include <string>
#include <string_view>

#include "core/fichiers/fichiers.h"

namespace quelvar::capture {

// A generic made of the name of the file: letters without accents, digits, "-" and "_", at most twelve, upper case. One
// that has files of another data set steps on to a free one.
std::string GeneriquePropose(const Chemin& repertoire, const Chemin& fichier);
// Whether an import of the file under that generic replaces files that it is not made of.
bool GeneriqueOccupe(const Chemin& repertoire, std::string_view generique, const Chemin& fichier);
// Why a generic cannot be used, empty when it can. What follows a point is dropped before.
std::string RefusDuGenerique(std::string_view generique);

}  // namespace quelvar::capture
