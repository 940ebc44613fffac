// What a regression cannot do without, and the words for what is missing.
#pragma once

#include <string>
#include <string_view>

#include "core/enquete/parametres.h"
#include "core/programme/programme.h"
#include "regression/donnees/entrees.h"

namespace quelvar::regression {

// `sorte`: what the .CDG holds, as the report says it. Raises kArretAnnonce behind a line for each file that is
// missing.
void ExigerEntrees(Rapport& rapport, const Contexte& contexte, const EntreesDeRegression& entrees, Texte sorte);
// The same of the table `nom`, which stands in place of the .CDG.
void ExigerTableNommee(Rapport& rapport, const Contexte& contexte, const std::string& nom, bool presente, Texte sorte);

// The banner and the names of the files.
void ImprimerNomsDeFichiers(const Contexte& contexte, Rapport& rapport, Texte titre, Texte sorte,
                            std::string_view extension);

// Tells the remarks on the parameters of the .MOD, `nom`. Raises kArretAnnonce, with its line, when they give no width.
void ExigerFormat(Rapport& rapport, const ParametresMod& parametres, std::string_view nom);

// Raises kArretAnnonce, with the place of the first one, when there are some: each rank that was kept has its line,
// which ends with what is missing.
void ExigerSansFautifs(Rapport& rapport, const Fautifs& fautifs, Texte manque);

}  // namespace quelvar::regression
