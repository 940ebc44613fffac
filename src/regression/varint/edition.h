// Prints the profiles of questions.
#pragma once

#include "core/enquete/posfile.h"
#include "core/programme/programme.h"
#include "regression/varint/profils.h"
#include "regression/varint/varint.h"

namespace quelvar::regression {

// The banner and the names of the files.
void ImprimerTeteDesProfils(const Contexte& contexte, Rapport& rapport);
void ImprimerTitreDesProfils(Rapport& rapport);
// One question with its links: one below the other with their long names, or side by side in blocks.
void ImprimerProfil(Rapport& rapport, const FichierPos& pos, const Profil& profil, EditionVarint edition);

}  // namespace quelvar::regression
