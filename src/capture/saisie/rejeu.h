// A whole keyed entry replayed from a text, of keys or of records.
#pragma once

#include <functional>
#include <string>

#include "core/programme/programme.h"

namespace quelvar::capture {

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
