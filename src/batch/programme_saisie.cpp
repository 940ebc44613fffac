#include <iostream>
#include <string>

#include "batch/programmes.h"
#include "capture/saisie/saisie.h"
#include "capture/saisie/touches.h"

namespace quelvar::batch {

namespace {

// A line of the standard input in the code page.
bool LireLigneDEntree(std::string& ligne) {
  if (!std::getline(std::cin, ligne)) return false;
  if (ligne.ends_with('\r')) ligne.pop_back();
  if (EstUtf8MultiOctet(ligne)) ligne = DepuisUtf8(ligne);
  return true;
}

Fin Rejouer(const Contexte& contexte, const capture::OptionsSaisie& options) {
  capture::OptionsSaisie avecLecture = options;
  avecLecture.lire = LireLigneDEntree;
  return capture::Saisie(contexte, avecLecture);
}

}  // namespace

Programme ProgrammeSaisie() {
  using O = capture::OptionsSaisie;
  using capture::ModeDEntree;
  return Description<O>("saisie", "Saisie de questionnaires, lue sur l'entrée standard (.DAT, .POS)"_w, Rejouer)
      .Choix("entree", &O::entree,
             {{"touches", ModeDEntree::Touches}, {"enregistrements", ModeDEntree::Enregistrements}},
             Joindre({"touches : noms séparés par des blancs ("_w, capture::NomsDesTouches(),
                      "), Bas*3, \"un texte\", Enregistrement=12 ; enregistrements : une ligne par individu, réponses "
                      "séparées par ;"_w}))
      .OuiNon("directe", &O::directe, "un chiffre répond à une question numérique courte et passe à la suivante"_w)
      .Alias({"checkdirect"})
      .OuiNon("synchroniser", &O::synchroniser, "chaque enregistrement est sur le disque avant le suivant"_w);
}

}  // namespace quelvar::batch
