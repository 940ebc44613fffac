// The failures of the system that name their file.
#pragma once

#include "core/fichiers/fichiers.h"

namespace quelvar {

// What errno tells of that file.
[[noreturn]] void LeverErrno(const Chemin& chemin, int codeErrno);
// The same for a file to be made: what is missing then is the directory (kCheminIntrouvable).
[[noreturn]] void LeverErrnoDeCreation(const Chemin& chemin, int codeErrno);

}  // namespace quelvar
