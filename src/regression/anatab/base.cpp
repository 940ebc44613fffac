#include "regression/anatab/base.h"

#include <string_view>

namespace quelvar::regression {

DonneesDeBase CompterLaBase(const Individus& individus, const Modele& modele) {
  std::vector<double> effectifs(individus.fiches.Nombre());
  for (const NumeroFiche f : individus.fiche) ++effectifs[f];
  DonneesDeBase base;
  base.oui.resize(modele.Explicatives());
  base.total.resize(modele.Explicatives());
  for (NumeroFiche f = 0; f < effectifs.size(); ++f) {
    const std::string_view fiche = individus.fiches[f];
    const double oui = individus.fiches.Oui(f) ? effectifs[f] : 0;
    for (std::size_t k = 0; k < base.total.size(); ++k) {
      base.total[k] += ValeurDuCaractere(fiche[k]) * effectifs[f];
      base.oui[k] += ValeurDuCaractere(fiche[k]) * oui;
    }
  }
  base.nombreOui = static_cast<double>(individus.oui);
  base.individus = static_cast<double>(individus.Nombre());
  return base;
}

}  // namespace quelvar::regression
