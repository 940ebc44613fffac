// The failures of the system that name their file.
#pragma once

#include "core/fichiers/systeme/chemins.h"
#include "core/panne/erreur.h"

namespace quelvar {

// A failure of that number, met at that file.
Erreur EchecDuFichier(const Chemin& chemin, int numero);
// The failure (kAccesFichier) that a directory, a pipe or a device in place of a file is.
Erreur PasUnFichier(const Chemin& chemin);
// What errno tells of that file.
[[noreturn]] void LeverErrno(const Chemin& chemin, int codeErrno);
// The same for a file to be made: what is missing then is the directory (kCheminIntrouvable).
[[noreturn]] void LeverErrnoDeCreation(const Chemin& chemin, int codeErrno);

}  // namespace quelvar
