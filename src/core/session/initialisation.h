// The two files by which a session finds its data again: Qvr2.ini in a directory of data, and Qvr2.in0 beside the
// program, which points to the last one.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/fichiers/fichiers.h"
#include "core/programme/programme.h"

namespace quelvar {

class JeuDeFichiers;

// The two lines of Qvr2.ini.
struct Initialisation {
  std::string generique;
  int niveau = kNiveauSimple;  // kNiveauAvance for the maximum of options; everything else reads as the simple one

  bool operator==(const Initialisation&) const = default;
};

// Raises a failure of reading; a file without lines has no generic and the simple level.
Initialisation LireInitialisation(const Chemin& chemin);
// Writes Qvr2.ini anew in the directory, in one rename; nothing for an empty generic. Raises a failure of writing.
void EcrireInitialisation(const Chemin& repertoire, std::string_view generique, int niveau);
// The same as one of the files of a set, which moves the session to a new generic.
void EcrireInitialisation(JeuDeFichiers& sorties, std::string_view generique, int niveau);
// The initialisation file of a directory: the one that exists, else the name of a new one.
Chemin CheminInitialisation(const Chemin& repertoire);

// The directory of the executable when it can be written, else the user's data directory, which is made.
Chemin RepertoireDuProgramme(const Chemin& executable, const Chemin& donneesDeLUtilisateur);
// The initialisation path that Qvr2.in0 keeps from the last session; nothing without the file, and for one that cannot
// be read.
std::optional<Chemin> LirePointeur(const Chemin& repertoireProgramme);
// Keeps that path for the next session. Raises a failure of writing.
void EcrirePointeur(const Chemin& repertoireProgramme, const Chemin& initialisation);

}  // namespace quelvar
