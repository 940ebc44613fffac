#include "forms/entrees.h"

#include "forms/fimportcsv.h"
#include "forms/frmabout.h"
#include "forms/prem.h"
#include "forms/principal2.h"

namespace quelvar {

namespace {

// In the order of the menu. An entry that is not here is shown disabled.
constexpr EntreeDeProgramme kEntrees[] = {
    {"mnuPrem", OuvrirPrem},     {"mnuChangeRepert", OuvrirRepertoires}, {"mnuImport", OuvrirImport},
    {"mnuTriapl", OuvrirTriapl}, {"mnuAPropos", OuvrirAPropos},
};

}  // namespace

std::span<const EntreeDeProgramme> EntreesDeProgrammes() { return kEntrees; }

}  // namespace quelvar
