// The mark on a result that nobody waited for: what the file must hold if the machine has stopped before it was
// written. It is an extended attribute of the file, so that it goes where the file goes; a file system without them has
// no marks.
#pragma once

#include <cstdint>
#include <string>

#include "core/fichiers/systeme/chemins.h"

namespace quelvar {

// Marks an open file with its size, its digest and the present start of the machine.
void MarquerNonAttendu(int descripteur, std::uint64_t taille, std::uint64_t empreinte);

// Looks at the mark of an open file that is about to be read. Within the start of the machine that made it, and for a
// file that was changed since, there is nothing to say; after another start the file is measured, and one that is whole
// loses its mark. Raises a sentence (kErreurPeripherique) for one that is not.
void VerifierMarque(int descripteur, const Chemin& chemin);

// The start of the machine that this process lives in, as the system calls it.
std::string AmorceDuSysteme();

}  // namespace quelvar
