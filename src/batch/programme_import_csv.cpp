#include "batch/programmes.h"
#include "capture/import_csv.h"

namespace quelvar::batch {

Programme ProgrammeImportCsv() {
  return Description<capture::OptionsImportCsv>(
             "import-csv", "Importation d'un tableur sauvé en .CSV ou .TXT (.DAT, .POS, .IMP)"_w, capture::ImportCsv)
      .OuiNon("sansintitules", &capture::OptionsImportCsv::sansIntitules,
              "fichier sans première ligne donnant les intitulés ; il ne donne pas de .POS"_w)
      .Alias({"checktrg"});
}

}  // namespace quelvar::batch
