// Copies that keep what a program is about to replace and nobody could make again.
#pragma once

#include <string>
#include <string_view>

#include "core/fichiers/fichiers.h"
#include "core/fichiers/jeu.h"

namespace quelvar {

// The first name that no file has among .CS2, .CS3 ... .CS9 (for a .CSV); the last of them when all are taken.
std::string NomDeSauvegardeLibre(const Chemin& repertoire, std::string_view nom);

// Puts a copy of the former file, which is called `nom`, in the set under that name, and returns it.
std::string Sauvegarder(JeuDeFichiers& sorties, const Chemin& ancien, std::string_view nom);

// True when the two files hold the same bytes: nothing is lost when one takes the place of the other.
bool MemesOctets(const Chemin& a, const Chemin& b);

}  // namespace quelvar
