// Copies that keep what a program is about to replace and nobody could make again.
#pragma once

#include <string>
#include <string_view>

#include "core/fichiers/fichiers.h"
#include "core/fichiers/jeu.h"

namespace quelvar {

// The numbers of copies: the file itself is the first one, and two characters of an extension hold no more.
inline constexpr int kPremiereSauvegarde = 2;
inline constexpr int kDerniereSauvegarde = 99;
// The name of a copy by its number, which takes the place of the last characters: .CS2, .CS3 ... .CS9, .C10 ... .C99
// for a .CSV. Without a number, the usual name.
std::string NomDeSauvegarde(std::string_view nom, int numero = kPremiereSauvegarde);

// The first of these names that no file has. Raises kAccesFichier, with a sentence, when all of them are taken.
std::string NomDeSauvegardeLibre(const Chemin& repertoire, std::string_view nom);

// Puts a copy of the former file, which is called `nom`, in the set under the first of these names that is free, and
// returns that name. Raises what NomDeSauvegardeLibre and JeuDeFichiers::Copier raise.
std::string Sauvegarder(JeuDeFichiers& sorties, const Chemin& ancien, std::string_view nom);

// Puts the lines of the former file, which is called `nom`, in the set under the usual name of its copy (.PO2), and
// returns that name. Raises what CopierLignes and JeuDeFichiers::Ouvrir raise.
std::string CopierSousLeNomUsuel(JeuDeFichiers& sorties, const Chemin& ancien, std::string_view nom);

// The first number that is free (.PO3), for an older copy that says something else than the file to be saved; empty
// when there is none, or when another copy says the same. Raises kAccesFichier when no number is free.
std::string NomPourAncienneSauvegarde(const Chemin& repertoire, const Chemin& fichier, std::string_view sauvegarde);
// That older copy goes on under that name, which is returned, among the outputs.
std::string ConserverSauvegarde(JeuDeFichiers& sorties, const Chemin& fichier, std::string_view sauvegarde);

// Keeps a file that another one is about to replace under the first backup name that is free, as one of the outputs;
// not when that one, or a copy that is there, has the same bytes. Returns the name of the copy, empty without one.
// Raises what NomDeSauvegardeLibre and JeuDeFichiers::Copier raise.
std::string GarderRemplace(JeuDeFichiers& sorties, const Chemin& ancien, const Chemin& nouveau);

// True when the two files hold the same bytes: nothing is lost when one takes the place of the other. Raises
// a failure of reading.
bool MemesOctets(const Chemin& a, const Chemin& b);

}  // namespace quelvar
