#include "batch/programmes.h"
#include "capture/import_csv.h"

namespace quelvar::batch {

Programme ProgrammeImportCsv() {
  return Description<OptionsImportCsv>("import-csv",
                                       "Importation d'un tableur sauvé en .CSV ou .TXT (.DAT, .POS, .IMP)"_w, ImportCsv)
      .OuiNon("sansintitules", &OptionsImportCsv::sansIntitules,
              "fichier sans première ligne donnant les intitulés ; il ne donne pas de .POS"_w)
      .Alias({"checktrg"});
}

}  // namespace quelvar::batch
