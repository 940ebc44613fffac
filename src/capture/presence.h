// Which source files a generic and a directory have for an import, and what the forms of the import say about them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/programme/programme.h"

namespace quelvar::capture {

struct SourcesPresentes {
  bool dbf = false;
  bool csv = false;
  bool dat = false;
  bool pos = false;  // as ChercherPos finds it
  bool brt = false;
  bool txt = false;
  bool imp = false;  // the report of an import; no source

  // The form FImportCSV serves these sources, FImport the others.
  bool DeTableur() const { return csv || txt; }
};

SourcesPresentes ChercherSources(const Contexte& contexte);

// The files of a directory that an import reads, in the order of their names: .csv, .txt, .ods, .xlsx, .dbf.
struct FichierImportable {
  Chemin chemin;
  std::uintmax_t octets = 0;
};
std::vector<FichierImportable> FichiersImportables(const Chemin& repertoire);

std::string_view TextePresence(bool present);
// Text of the help box of FImportCSV, lines ended by CR LF.
std::string AideImportCsv(const SourcesPresentes& sources, bool sansIntitules);
// Text of the help box of FImport; at level 1 the import of a Burt table is not offered.
std::string AideImport(const SourcesPresentes& sources, int niveau);

// What FImport says of the import of a Burt table: the steps that make its source.
std::string AideImportBurt();

}  // namespace quelvar::capture
