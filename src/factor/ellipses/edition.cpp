#include "factor/ellipses/edition.h"

#include "core/resultats/rangees.h"

namespace quelvar::factor {

void ImprimerEllipses(Rapport& rapport, const EllipsesDeModalite& modalite) {
  const FormeEnRangees forme{.places = {{"Kappa=", 1},
                                        {" Pourcentage d'individus : ", 2},
                                        {" (observé : "_w, 1, Elargissement::DerriereUnTexte}}};
  rapport.Ligne({"Modalité= "_w, modalite.nom, " effectif=", NombreFixe(static_cast<double>(modalite.effectif), 4, 0),
                 " ", modalite.intitule});
  for (const Rangee& ellipse : TableDesEllipses(modalite).rangees) {
    rapport.Ligne(ellipse.titre);
    rapport.Ligne(TexteDeRangee({{}, {}, ellipse.cellules}, forme));
    rapport.Ligne();
  }
}

}  // namespace quelvar::factor
