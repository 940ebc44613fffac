// Copies that keep what a program is about to replace and nobody could make again.
#pragma once

#include <string>
#include <string_view>

#include "core/fichiers/fichiers.h"
#include "core/fichiers/jeu.h"

namespace quelvar {

// The name of a copy by its number: .CS2, .CS3 ... .CS9, .C10 ... .C99 for a .CSV.
std::string NomDeSauvegarde(std::string_view nom, int numero);
inline constexpr int kSauvegardes = 99;

// The first of these names that no file has. Raises kAccesFichier, with a sentence, when all of them are taken.
std::string NomDeSauvegardeLibre(const Chemin& repertoire, std::string_view nom);

// Puts a copy of the former file, which is called `nom`, in the set under that name, and returns it.
std::string Sauvegarder(JeuDeFichiers& sorties, const Chemin& ancien, std::string_view nom);

// True when the two files hold the same bytes: nothing is lost when one takes the place of the other.
bool MemesOctets(const Chemin& a, const Chemin& b);

}  // namespace quelvar
