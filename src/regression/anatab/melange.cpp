#include "regression/anatab/melange.h"

namespace quelvar::regression {

std::optional<Melange> MelangeDesFiches(const Individus& individus, const std::vector<Comptee>& comptees,
                                        double possibles) {
  const Fiches& fiches = individus.fiches;
  Fiches situations(fiches.Largeur() - 2);
  std::vector<NumeroFiche> situationDe;
  for (NumeroFiche f = 0; f < fiches.Nombre(); ++f) situationDe.push_back(situations.Ranger(fiches.Situation(f)));

  Melange melange{situations.Nombre(), 0, 0, 0};
  for (std::size_t i = 0; i < comptees.size(); ++i) {
    if (i == 0 || situationDe[comptees[i].fiche] != situationDe[comptees[i - 1].fiche]) ++melange.morceaux;
    else if (fiches.Oui(comptees[i].fiche)) ++melange.inversees;
  }
  if (comptees.size() == fiches.Nombre() && melange.morceaux == melange.situations && melange.inversees == 0)
    return std::nullopt;

  struct Effectifs {
    std::int64_t oui = 0;
    std::int64_t non = 0;
  };
  std::vector<Effectifs> effectifs(situations.Nombre());
  for (const NumeroFiche f : individus.fiche)
    ++(fiches.Oui(f) ? effectifs[situationDe[f]].oui : effectifs[situationDe[f]].non);
  const bool toutes = static_cast<double>(fiches.Nombre()) == possibles;
  for (const auto& [oui, non] : effectifs)
    if (toutes || (oui > 0 && non > 0)) melange.population += oui + non;
  return melange;
}

}  // namespace quelvar::regression
