// The system calls by which files come into being and take their places, each behind one point where a test may cut the
// run or make the call fail.
#pragma once

#include <sys/stat.h>
#include <sys/types.h>

#include <cstddef>
#include <cstdint>

#include "core/fichiers/systeme/chemins.h"

namespace quelvar::appels {

// What a test puts before every call: it receives the name of the call and returns the errno that it is to fail with,
// 0 to let it go on. It may also end the process. PoserSonde takes it away with nullptr.
using Sonde = int (*)(const char* appel);
void PoserSonde(Sonde sonde);

// As the calls of their kind: -1 (or a negative count) and errno on failure.
int Creer(const char* chemin);  // a new file, never through a link, open for reading and writing
// A file to be written to, as the flags of open say; made with the rights of every new file.
int OuvrirEnEcriture(const char* chemin, int drapeaux);
ssize_t Ecrire(int descripteur, const void* octets, std::size_t taille);
ssize_t EcrireA(int descripteur, const void* octets, std::size_t taille, std::uint64_t place);
int Fermer(int descripteur);
int Synchroniser(int descripteur);
int Effacer(const char* chemin);
int Raccourcir(const char* chemin, std::uint64_t taille);
int RaccourcirOuvert(int descripteur, std::uint64_t taille);
int Lier(const char* existant, const char* nouveau);
int Renommer(const char* de, const char* vers);
// Fails with EEXIST when there is a file of the second name.
int RenommerSansRemplacer(const char* de, const char* vers);
// Both files are there, before and after. Where the file system cannot do it in one call it goes by a third name, a "~"
// behind the second one, and the first name is never without a file.
int Echanger(const char* cible, const char* provisoire);

// Ends an exchange by a third name that a kill has cut, forwards when the new file has taken its place, else backwards.
int AcheverEchange(const char* cible, const char* provisoire);

// Whether something bears that name, a link that leads nowhere included. No test cuts it: it changes nothing.
bool Existe(const char* chemin);
// The time of the last write of a file, in nanoseconds: one that was changed since has another.
std::int64_t InstantDEcriture(const struct stat& etat);

// Raises the failure that errno tells of that file when a call has returned anything but 0.
void Exiger(int resultat, const Chemin& fichier);

}  // namespace quelvar::appels
