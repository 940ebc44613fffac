#include "forms/entrees.h"

#include "forms/choixanecar.h"
#include "forms/choixecapem.h"
#include "forms/choixposmod.h"
#include "forms/choixvar.h"
#include "forms/fimportcsv.h"
#include "forms/frmabout.h"
#include "forms/graphe3.h"
#include "forms/modifmod.h"
#include "forms/nomemod.h"
#include "forms/nomquest.h"
#include "forms/prem.h"
#include "forms/preprecod.h"
#include "forms/principal2.h"

namespace quelvar {

namespace {

// In the order of the menu. An entry that is not here is shown disabled.
constexpr EntreeDeProgramme kEntrees[] = {
    // clang-format off
    {"mnuPrem", OuvrirPrem},
    {"mnuChangeRepert", OuvrirRepertoires},
    {"mnuImport", OuvrirImport},
    {"mnuTriapl", OuvrirTriapl},
    {"mnuCroise", OuvrirChoixVar},
    {"mnuNomQuest", OuvrirNomQuest},
    {"mnuNomMod", OuvrirNomMod},
    {"mnuPrepRecod", OuvrirPrepRecod},
    {"mnuOutils", OuvrirOutils},
    {"mnuPosmod", OuvrirPosmod},
    {"mnuModifMod", OuvrirModifMod},
    {"mnuEcapem", OuvrirChoixEcapem},
    {"mnuAnecar", OuvrirAnecar},
    {"mnuGraphe", OuvrirGraphe3},
    {"mnuPosmod2", OuvrirPosmodRegression},
    {"mnuAnecarText", OuvrirAnecar},
    {"mnuGrapheText", OuvrirGraphe3},
    {"mnuPEM", OuvrirChoixEcapem},
    {"mnuAPropos", OuvrirAPropos},
    // clang-format on
};

}  // namespace

std::span<const EntreeDeProgramme> EntreesDeProgrammes() { return kEntrees; }

}  // namespace quelvar
