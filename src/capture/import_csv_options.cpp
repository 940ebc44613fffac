#include "capture/import_csv_options.h"

namespace quelvar::capture {

const Description<OptionsImportCsv>& DescriptionImportCsv() {
  using O = OptionsImportCsv;
  static const Description<O> description =
      Description<O>("import-csv", "Importation d'un tableur sauvé en .CSV ou .TXT (.DAT, .POS, .IMP)"_w, ImportCsv)
          .OuiNon("sansintitules", &O::sansIntitules,
                  "fichier sans première ligne donnant les intitulés ; il ne donne pas de .POS"_w)
          .Montre("CheckTrg");
  return description;
}

}  // namespace quelvar::capture
