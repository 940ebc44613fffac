#include "forms/cadre/menus/entrees.h"

#include "forms/programmes/capture/import/fimportcsv.h"
#include "forms/programmes/capture/saisief.h"
#include "forms/programmes/crosstab/choixvar.h"
#include "forms/programmes/factor/choixanecar.h"
#include "forms/programmes/factor/graphe3/graphe3.h"
#include "forms/programmes/factor/profilmod.h"
#include "forms/programmes/modalities/choixposmod.h"
#include "forms/programmes/modalities/modifmod.h"
#include "forms/programmes/modalities/nomemod.h"
#include "forms/programmes/modalities/nomquest.h"
#include "forms/programmes/regression/choixvarint.h"
#include "forms/programmes/regression/modifmodr.h"
#include "forms/programmes/session/frmabout.h"
#include "forms/programmes/session/prem.h"
#include "forms/programmes/session/repertoires.h"
#include "forms/programmes/sorts/choixrecodage.h"
#include "forms/programmes/sorts/choixtriapl.h"
#include "forms/programmes/sorts/preprecod.h"
#include "forms/programmes/tables/choixecapem.h"
#include "forms/programmes/tables/graphe.h"
#include "forms/programmes/text/preptext.h"
#include "forms/programmes/text/saisiemot.h"
#include "forms/programmes/text/suplmot.h"
#include "forms/programmes/text/tabmot.h"
#include "forms/programmes/text/tabmotagreg.h"
#include "forms/programmes/utilities/exportcsv.h"
#include "forms/programmes/utilities/utilitaires.h"

namespace quelvar::forms {

namespace {

// In the order of the menu. An entry that is not here is shown disabled.
constexpr EntreeDeProgramme kEntrees[] = {
    // clang-format off
    {"mnuPrem", OuvrirPrem, false},
    {"mnuChangeRepert", OuvrirRepertoires, false},
    {"mnuSaisie", OuvrirSaisie},
    {"mnuImport", OuvrirImport},
    {"mnuTriapl", OuvrirTriapl},
    {"mnuCroise", OuvrirChoixVar},
    {"mnuTriang", OuvrirTriang},
    {"mnuNomQuest", OuvrirNomQuest},
    {"mnuNomMod", OuvrirNomMod},
    {"mnuPrepRecod", OuvrirPrepRecod},
    {"mnuOutils", OuvrirOutils},
    {"mnuVarInt", OuvrirVarInt},
    {"mnuPosmod", OuvrirPosmod},
    {"mnuModifMod", OuvrirModifMod},
    {"mnuEcapem", OuvrirChoixEcapem},
    {"mnuAnecar", OuvrirAnecar},
    {"mnuGraphe", OuvrirGraphe3},
    {"mnexportCSV", OuvrirExportCsv},
    {"mnuPosmod2", OuvrirPosmodRegression},
    {"mnuPrepText", OuvrirPrepText},
    {"mnuImpMot", OuvrirSaisieMot},
    {"mnuTabMot", OuvrirTabMot},
    {"mnuModifModR", OuvrirModifModR},
    {"mnuAnatab", OuvrirAnatab},
    {"mnuReglin", OuvrirReglin},
    {"mnuAnecarText", OuvrirAnecar},
    {"mnuGrapheText", OuvrirGraphe3},
    {"mnuSupLignes", OuvrirSuplMot},
    {"mnuTabMotAgreg", OuvrirTabMotAgreg},
    {"mnuPEM", OuvrirChoixEcapem},
    {"mnuProfil", OuvrirProfilMod},
    {"mnuUtil", OuvrirUtilitaires},
    {"mnuAPropos", OuvrirAPropos, false},
    // clang-format on
};

}  // namespace

std::span<const EntreeDeProgramme> EntreesDeProgrammes() { return kEntrees; }

}  // namespace quelvar::forms
