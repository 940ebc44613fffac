// Copies that keep what a program is about to replace and nobody could make again.
#pragma once

#include <string>
#include <string_view>

#include "core/fichiers/fichiers.h"

namespace quelvar {

// The first name that no file has among .CS2, .CS3 ... .CS9 (for a .CSV); the last of them when all are taken.
std::string NomDeSauvegardeLibre(const Chemin& repertoire, std::string_view nom);

}  // namespace quelvar
