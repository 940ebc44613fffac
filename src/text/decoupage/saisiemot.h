// Word cutting: turns the answers of generic.TXT into a data set whose unit is the word, with its position file and its
// lines of concordance.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/programme/programme.h"
#include "text/decoupage/coupe.h"

namespace quelvar::text {

struct OptionsSaisieMot {
  int position = 0;  // C, column in which the characteristics end
  ReponseVide vide = ReponseVide::NonReponse;
  ModeStimulus mode = ModeStimulus::Aucun;
  int positionStimulus = 0;  // column of the stimulus among the characteristics, in modes 2 and 3
  int lignesMax = 1;         // lines of text of an individual
  bool auxiliaires = false;  // keep .NT1, .TR1 and .EDI
  bool themes = false;       // only words that begin with "$", as markers of themes

  bool operator==(const OptionsSaisieMot&) const = default;
};

// What the form says instead of starting; empty when it may start.
std::string RefusDeDecouper(const OptionsSaisieMot& options);

// The answers to the boxes that a run would open, in their order, with words in place of those that only the user
// knows.
std::vector<std::string> ReponsesAuDecoupage(const Contexte& contexte, const OptionsSaisieMot& options);

// Runs the cutting. Files change at the normal end only. Every failure is told in the report .IMP.
Fin SaisieMot(const Contexte& contexte, const OptionsSaisieMot& options);

}  // namespace quelvar::text
