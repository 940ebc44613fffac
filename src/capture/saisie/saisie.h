// Keyed entry: the start of an entry on the files of the generic, what Enter does, the report at its end, and a whole
// entry replayed from a text.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "capture/saisie/etat.h"
#include "capture/saisie/fichiers.h"
#include "core/programme/programme.h"

namespace quelvar::capture {

// An entry that is under way.
struct SaisieEnCours {
  EtatSaisie etat;
  FichiersSaisie fichiers;
  std::string fautes;  // of the descriptor, to be shown before the first question; lines separated by CR LF
};

// Reads .DAT and .DES and gives the entry its start; nothing without a .DES. Raises the failures of the readers.
std::optional<SaisieEnCours> CommencerSaisie(const Contexte& contexte,
                                             Synchronisation synchronisation = Synchronisation::Oui);

// What Enter asks for: writes the record, or tells that it is empty (false), and goes on with the next individual. When
// the disk refuses it, the answers stay and the number is raised.
bool Enregistrer(SaisieEnCours& saisie);
// Shows a record that was made, for correction. Returns why it can't, and then changes nothing: answers that are not
// written would be lost, or there is no record of that number.
std::string Revoir(SaisieEnCours& saisie, std::int64_t numero);

// The end of an entry: the report "$$$.prt" with the count of records.
Fin TerminerSaisie(const Contexte& contexte, std::int64_t faits);

enum class ModeDEntree { Touches, Enregistrements };

struct OptionsSaisie {
  ModeDEntree entree = ModeDEntree::Touches;
  bool directe = false;      // CheckDirect
  bool synchroniser = true;  // each record is on the disk before the next one

  bool operator==(const OptionsSaisie&) const = default;
};

// Gives the next line of the text to replay, in the code page, false at its end; a line with characters that the code
// page lacks has them as NomDepuisUtf8 writes them, and is refused.
using LectureDeLigne = std::function<bool(std::string& ligne)>;

// Replays an entry. The end of the text ends it as Escape does; a line that can't be taken stops it and is told in a
// box. The faults of the descriptor are told in a box, where "Annuler" stops.
Fin Saisie(const Contexte& contexte, const OptionsSaisie& options, const LectureDeLigne& lire);

}  // namespace quelvar::capture
