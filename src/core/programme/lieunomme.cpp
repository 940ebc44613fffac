#include "core/programme/lieunomme.h"

namespace quelvar {

std::string TexteErreurDuFichierNomme(const Erreur& erreur) {
  const Lieu& ou = erreur.Ou();
  const bool avecFichier = !ou.fichier.empty() && TexteDuLieu(erreur).starts_with(ou.fichier);
  if (!avecFichier) return TexteErreur(erreur);
  return TexteErreur(Erreur(erreur.Numero(), erreur.Phrase()).Situer({{}, ou.ligne, ou.colonne}));
}

}  // namespace quelvar
