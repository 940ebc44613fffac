#include "capture/saisie/options.h"

#include <iostream>

#include "capture/saisie/touches.h"
#include "core/programme/horspage.h"

namespace quelvar::capture {

namespace {

bool LireLigne(std::string& ligne) {
  if (!std::getline(std::cin, ligne)) return false;
  if (ligne.ends_with('\r')) ligne.pop_back();
  if (EstUtf8MultiOctet(ligne)) ligne = RefusHorsPage(ligne).empty() ? DepuisUtf8(ligne) : NomDepuisUtf8(ligne);
  return true;
}

}  // namespace

Fin SaisirEntreeStandard(const Contexte& contexte, const OptionsSaisie& options) {
  return Saisie(contexte, options, LireLigne);
}

const Description<OptionsSaisie>& DescriptionSaisie() {
  using O = OptionsSaisie;
  static const Description<O> description =
      Description<O>("saisie", "Saisie de questionnaires, lue sur l'entrée standard (.DAT, .POS)"_w,
                     SaisirEntreeStandard)
          .Choix("entree", &O::entree,
                 {{"touches", ModeDEntree::Touches}, {"enregistrements", ModeDEntree::Enregistrements}},
                 Joindre({"touches : noms séparés par des blancs ("_w, NomsDesTouches(),
                          "), Bas*3, \"un texte\", Enregistrement=12 ; enregistrements : une ligne par individu, "
                          "réponses séparées par ;"_w}))
          .OuiNon("directe", &O::directe, "un chiffre répond à une question numérique courte et passe à la suivante"_w)
          .Montre("CheckDirect")
          .OuiNon("synchroniser", &O::synchroniser, "chaque enregistrement est sur le disque avant le suivant"_w);
  return description;
}

}  // namespace quelvar::capture
