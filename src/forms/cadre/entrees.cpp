#include "forms/cadre/entrees.h"

#include "forms/aide/frmabout.h"
#include "forms/programmes/capture/fimportcsv.h"
#include "forms/programmes/crosstab/choixvar.h"
#include "forms/programmes/factor/choixanecar.h"
#include "forms/programmes/factor/graphe3.h"
#include "forms/programmes/modalities/choixposmod.h"
#include "forms/programmes/modalities/modifmod.h"
#include "forms/programmes/modalities/nomemod.h"
#include "forms/programmes/modalities/nomquest.h"
#include "forms/programmes/session/prem.h"
#include "forms/programmes/session/repertoires.h"
#include "forms/programmes/sorts/choixrecodage.h"
#include "forms/programmes/sorts/choixtriapl.h"
#include "forms/programmes/sorts/preprecod.h"
#include "forms/programmes/tables/choixecapem.h"
#include "forms/programmes/text/preptext.h"
#include "forms/programmes/text/saisiemot.h"
#include "forms/programmes/text/suplmot.h"
#include "forms/programmes/text/tabmot.h"
#include "forms/programmes/text/tabmotagreg.h"

namespace quelvar::forms {

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
    {"mnuPrepText", OuvrirPrepText},
    {"mnuImpMot", OuvrirSaisieMot},
    {"mnuTabMot", OuvrirTabMot},
    {"mnuAnecarText", OuvrirAnecar},
    {"mnuGrapheText", OuvrirGraphe3},
    {"mnuSupLignes", OuvrirSuplMot},
    {"mnuTabMotAgreg", OuvrirTabMotAgreg},
    {"mnuPEM", OuvrirChoixEcapem},
    {"mnuAPropos", OuvrirAPropos},
    // clang-format on
};

}  // namespace

std::span<const EntreeDeProgramme> EntreesDeProgrammes() { return kEntrees; }

}  // namespace quelvar::forms
