// The files of the factor plane as data: nothing is printed here, the preparation of the plane tells what comes back.
#pragma once

#include "core/enquete/modfile.h"
#include "core/enquete/parametres.h"
#include "core/programme/arret.h"
#include "core/programme/programme.h"
#include "factor/plan/plan.h"

namespace quelvar::factor {

// The columns, without their places; a .MOD whose list is not that of the table stops the run.
ArretDeLecture DeclarerColonnes(const Contexte& contexte, const FichierMod& mod, const ParametresMod& parametres,
                                DonneesPlan& donnees);

// Places of the columns (.FAJ), and the rows with theirs (.FAI). A name that the .MOD does not have stops the run.
// Raises the failures of reading, kFinDeFichierDepassee for a .FAJ without elements, kArgumentIncorrect for one without
// factors.
ArretDeLecture PlacerElements(const Contexte& contexte, const ParametresMod& parametres, DonneesPlan& donnees);

// Small coordinates are drawn from the files with four decimals. Raises the failures of reading.
void AffinerCoordonnees(const Contexte& contexte, DonneesPlan& donnees);

// Shares of the factors, links, tree: what stands around the points. Raises the failures of reading.
void LireAutourDuPlan(const Contexte& contexte, const ExigencesGraphe& exigences, DonneesPlan& donnees);

}  // namespace quelvar::factor
