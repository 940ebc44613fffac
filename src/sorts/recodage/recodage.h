// Recoding: makes a new generation of a data set by recoding, VIT, filter and weighting, after the instructions that
// stand in its position file.
#pragma once

#include <string>

#include "core/programme/programme.h"

namespace quelvar::sorts {

// What a session keeps from one recoding to the next.
struct SuiteRecodage {
  std::string generique;         // after a complete run the new generic
  bool passerModalites = false;  // "Annuler" was answered: the modality file is passed on without a question
};

struct OptionsRecodage {
  bool seules = false;              // write only the questions that have a rule
  bool toutesSelectionnees = true;  // a question without a rule counts as selected by "S"
  bool enFin = false;               // keep the old questions and put recoded copies at the end of the record
  bool remplacer = true;            // the files of a generic that is there may be replaced unasked
  SuiteRecodage* suite = nullptr;   // of the session that runs the program, if any
  std::string fichierDonnees = {};  // other data file; empty for generic .DAT

  bool operator==(const OptionsRecodage&) const = default;
};

// Asks for the name of the new generic and writes its .REC, .DAT, .POS and, passed on, its .MOD; then Qvr2.ini names
// it. Unless files may be replaced, a free name is proposed and a name that is taken is confirmed. A run that does not
// come to its normal end leaves every file but the .REC as it was. Every failure is told in the report.
Fin Recodage(const Contexte& contexte, const OptionsRecodage& options);

}  // namespace quelvar::sorts
