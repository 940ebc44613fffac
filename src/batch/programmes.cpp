#include "batch/programmes.h"

#include "capture/apercu/options.h"
#include "capture/import_options.h"
#include "capture/saisie/options.h"
#include "crosstab/croise_options.h"
#include "factor/analyse/anecar_options.h"
#include "factor/coupe/coupe_options.h"
#include "factor/plan/graphe_options.h"
#include "factor/profil/profilmod_options.h"
#include "modalities/correction/modifmod_options.h"
#include "modalities/correction/nomemod_options.h"
#include "modalities/correction/nomquest_options.h"
#include "modalities/creation/posmod_options.h"
#include "modalities/regroupement/modifburt_options.h"
#include "regression/options.h"
#include "sorts/preparation/preprecod_options.h"
#include "sorts/recodage/recodage_options.h"
#include "sorts/triapl/triapl_options.h"
#include "tables/ecapem_options.h"
#include "tables/triangle/triang_options.h"
#include "text/concordance/concord_options.h"
#include "text/decoupage/saisiemot_options.h"
#include "text/gestion/options.h"
#include "text/preparation/preptext_options.h"
#include "text/tableau/tabmot_options.h"
#include "utilities/options.h"

namespace quelvar::batch {

namespace {

Programme SansGenerique(Programme programme) {
  programme.generiqueFacultatif = true;
  return programme;
}

}  // namespace

const std::vector<Programme>& Programmes() {
  static const std::vector<Programme> programmes = {
      // clang-format off
      SansGenerique(ProgrammeDe(capture::DescriptionApercu())),
      ProgrammeDe(capture::DescriptionImport()),
      ProgrammeDe(capture::DescriptionImportBurt()),
      ProgrammeDe(capture::DescriptionImportCsv()),
      ProgrammeDe(capture::DescriptionImportDbf()),
      ProgrammeDe(capture::DescriptionImportTableau()),
      ProgrammeDe(capture::DescriptionSaisie()),
      ProgrammeDe(sorts::DescriptionTriapl()),
      ProgrammeDe(sorts::DescriptionPrepRecod()),
      ProgrammeDe(sorts::DescriptionRecodage()),
      ProgrammeDe(crosstab::DescriptionCroise()),
      ProgrammeDe(modalities::DescriptionPosmod()),
      ProgrammeDe(modalities::DescriptionModifMod()),
      ProgrammeDe(modalities::DescriptionNomeMod()),
      ProgrammeDe(modalities::DescriptionNomQuest()),
      ProgrammeDe(tables::DescriptionEcapem()),
      ProgrammeDe(factor::DescriptionAnecar()),
      ProgrammeDe(factor::DescriptionWardCoupe()),
      ProgrammeDe(factor::DescriptionGraphe()),
      ProgrammeDe(regression::DescriptionModifModR()),
      ProgrammeDe(regression::DescriptionAnatab()),
      ProgrammeDe(regression::DescriptionReglin()),
      ProgrammeDe(regression::DescriptionVarint()),
      ProgrammeDe(tables::DescriptionTriang()),
      ProgrammeDe(modalities::DescriptionModifBurt()),
      ProgrammeDe(factor::DescriptionProfilMod()),
      ProgrammeDe(text::DescriptionPrepText()),
      ProgrammeDe(text::DescriptionSaisieMot()),
      ProgrammeDe(text::DescriptionTabMot()),
      ProgrammeDe(text::DescriptionSuplMot()),
      ProgrammeDe(text::DescriptionTabMotAgreg()),
      ProgrammeDe(text::DescriptionConcordance()),
      ProgrammeDe(utilities::DescriptionTriFichier()),
      ProgrammeDe(utilities::DescriptionTri()),
      ProgrammeDe(utilities::DescriptionExportCsv()),
      ProgrammeDe(utilities::DescriptionExporter()),
      ProgrammeDe(utilities::DescriptionCaracteres()),
      ProgrammeDe(utilities::DescriptionFusionner()),
      ProgrammeDe(utilities::DescriptionGendat()),
      ProgrammeDe(utilities::DescriptionInversion()),
      // clang-format on
  };
  return programmes;
}

}  // namespace quelvar::batch
