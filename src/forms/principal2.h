// Options of the flat sort and of the recoding, and the choice of the working directory.
#pragma once

namespace quelvar {

class Principal;

void OuvrirTriapl(Principal& principal);

}  // namespace quelvar
