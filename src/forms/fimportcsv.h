// The import of a spreadsheet: what is there, and the one option of the program.
#pragma once

namespace quelvar {

class Principal;

// Finds which source files the generic has and opens the form for them.
void OuvrirImport(Principal& principal);

}  // namespace quelvar
