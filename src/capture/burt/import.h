// Import of a Burt table that SAS has written as text: one line a row, a label and then the counts.
#pragma once

#include <string>
#include <string_view>

#include "core/programme/programme.h"

namespace quelvar::capture {

enum class NomsCourts {
  Automatiques,  // the rank of the row; the label is the long name
  Utilisateur,   // the first four characters of the label; the rest is the long name
};

struct OptionsImportBurt {
  std::string fichier;  // text file, by its name in the working directory or its path
  NomsCourts noms = NomsCourts::Automatiques;

  bool operator==(const OptionsImportBurt&) const = default;
};

// What is missing before a launch; empty when the import may start.
std::string_view RefusDImporterBurt(const OptionsImportBurt& options);

// Makes .BRT, .MOD and .POS of the generic, with an account in .IMP; the former ones are kept as .BR2, .MO2 and .PO2.
// Asks the size of the survey. Stops with kIncompatibiliteType for a word among the counts, kIndiceHorsSelection for
// a row with too few of them, kFinDeFichierDepassee for an empty file.
Fin ImportBurt(const Contexte& contexte, const OptionsImportBurt& options);

}  // namespace quelvar::capture
