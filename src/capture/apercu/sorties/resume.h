// What the preview of an import says of the table as a whole, in sentences of the code page: how it is read, whether it
// can be imported, what its columns become, how far it was looked at. Thousands stand apart by a no-break space.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "capture/apercu/choix/colonne.h"
#include "capture/apercu/observation/apercu.h"
#include "capture/apercu/octets/source.h"

namespace quelvar::capture {

// How a table stands before its import.
enum class EtatDeTable {
  Illisible,    // not under the reading that was chosen
  ACorriger,    // something of it stops the import
  AVerifier,    // nothing stops it, but what becomes of the columns is to be looked at
  ToutEnCodes,  // columns of codes, and nothing to be known of them
};

// "Tout va bien : 12 colonnes de codes, 300 individus. Entrée importe.", or what is to be done before.
std::string DireEtat(EtatDeTable etat, const std::vector<ChoixDeColonne>& choix, const Apercu& vue);
// "300 lues, dont 2 vides, laissées de côté", or that the file is still looked at; `attendue`: the import waits for it.
std::string DireExamen(const Apercu& vue, bool attendue);
// How the file is read by what it shows, and whether it was changed by hand.
std::string DireReconnue(const SourceDeTable& source, const Lecture& detectee, const Lecture& enCours);
// Of the choices of an earlier import, in that file: for how many columns they are taken up, or why they are not; empty
// when none of the columns has them.
std::string DireReprise(std::string_view fichier, std::size_t colonnes, std::string_view refus);

}  // namespace quelvar::capture
