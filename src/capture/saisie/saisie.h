// Keyed entry: the start of an entry on the files of the generic, what Enter does, and the report at its end.
#pragma once

#include <optional>
#include <string>
#include <string_view>

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

// The lines of the report on the records made; `faute`, why the entry has stopped, stands in place of the normal end.
void ImprimerFinDeSaisie(Rapport& rapport, std::int64_t faits, std::string_view faute = {});
// The end of an entry: the report "$$$.prt" with the count of records.
Fin TerminerSaisie(const Contexte& contexte, std::int64_t faits);

}  // namespace quelvar::capture
