// What an import knows before it writes: how the file is read, what its columns hold, what becomes of them.
#pragma once

#include <string>
#include <vector>

#include "capture/apercu/choix/demande.h"
#include "capture/apercu/octets/source.h"
#include "core/programme/programme.h"

namespace quelvar::capture {

struct Reconnaissance {
  Lecture lecture;
  std::vector<std::string> doutes;  // on the reading and on the choices
  FaitsDeTable faits;               // of the whole file
  std::vector<ChoixDeColonne> choix;
};

// `trace`, if any, gets the rows of the table. Raises what DetecterLecture, ExaminerTable and LireImc raise, and a
// sentence (kFichierIntrouvable) for a file of choices that is not there.
Reconnaissance Reconnaitre(const Contexte& contexte, const SourceDeTable& source, const OptionsImport& options,
                           TraceDeCellules* trace = nullptr);

}  // namespace quelvar::capture
