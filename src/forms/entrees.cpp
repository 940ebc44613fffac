#include "forms/entrees.h"

#include "forms/fimportcsv.h"
#include "forms/principal2.h"

namespace quelvar {

namespace {

// In the order of the menu. An entry that is not here is shown disabled.
constexpr EntreeDeProgramme kEntrees[] = {
    {"mnuImport", OuvrirImport},
    {"mnuTriapl", OuvrirTriapl},
};

}  // namespace

std::span<const EntreeDeProgramme> EntreesDeProgrammes() { return kEntrees; }

}  // namespace quelvar
