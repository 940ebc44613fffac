#include "forms/fimportcsv.h"

#include "capture/import_csv.h"
#include "forms/principal.h"

namespace quelvar {

void OuvrirImport(Principal& principal) {
  principal.Lancer([](const Contexte& contexte) { ImportCsv(contexte, {}); });
}

}  // namespace quelvar
