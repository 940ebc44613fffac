// What the regressions share in front of their method: the files that they read, the parameters of the .MOD, and the
// individuals whose lines cannot be used.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "core/enquete/modfile.h"
#include "core/enquete/parametres.h"
#include "core/panne/erreur.h"
#include "core/programme/programme.h"

namespace quelvar::regression {

struct EntreesDeRegression {
  Chemin donnees;  // .CDG
  Chemin mod;
};

// `sorte`: what the .CDG holds, as the report says it. Raises kArretAnnonce behind a line for each file that is
// missing.
EntreesDeRegression TrouverEntrees(const Contexte& contexte, Rapport& rapport, Texte sorte);
// The line on a table of data that is missing, and the stop that follows.
void ImprimerTableAbsente(Rapport& rapport, Texte sorte, std::string_view nom);
[[noreturn]] void ArreterPourAbsence(const Contexte& contexte, Rapport& rapport);

// The banner and the names of the files.
void ImprimerNomsDeFichiers(const Contexte& contexte, Rapport& rapport, Texte titre, Texte sorte,
                            std::string_view extension);

// The parameters of the .MOD that stands there, their remarks told. Raises what LireParametres raises, and
// kArretAnnonce, with its line, when they give no width.
ParametresMod ExigerParametres(Rapport& rapport, const FichierMod& mod, const Chemin& chemin);

// Ranks of individuals at fault that the report promises: beyond so many it says that these are the first.
inline constexpr std::int64_t kFautifsDits = 50;

// Individuals whose lines cannot be used: how many, the ranks of the first of them, and where the first one is.
struct Fautifs {
  std::vector<std::int64_t> rangs;  // from 1
  std::int64_t nombre = 0;
  Lieu premier = {};

  // `cites`: how many ranks are kept.
  void Noter(std::int64_t rang, std::int64_t cites, const Lieu& ou);
};

// Raises kArretAnnonce, with the place of the first one, when there are some: each rank that was kept has its line,
// which ends with what is missing.
void ExigerSansFautifs(Rapport& rapport, const Fautifs& fautifs, Texte manque);

}  // namespace quelvar::regression
