#include "capture/colonnes/colonne.h"

#include <utility>

#include "capture/nomscourts.h"
#include "core/programme/report.h"
#include "core/texte/nombres.h"

namespace quelvar::capture {

std::vector<std::size_t> NommerColonnes(std::vector<ColonneImportee>& colonnes) {
  std::vector<std::size_t> rangs;
  std::vector<std::string> intitules;
  for (std::size_t j = 0; j < colonnes.size(); ++j) {
    if (!colonnes[j].DansPos()) continue;
    rangs.push_back(j);
    intitules.push_back(colonnes[j].intitule);
  }
  std::vector<NomCourt> noms = NomsCourts(intitules);
  std::vector<std::size_t> changees;
  for (std::size_t i = 0; i < rangs.size(); ++i) {
    colonnes[rangs[i]].nomCourt = std::move(noms[i].nom);
    if (noms[i].distingue) changees.push_back(rangs[i]);
  }
  return changees;
}

void EcrirePos(Ecrivain& pos, std::string_view generique, const std::vector<ColonneImportee>& colonnes,
               std::int64_t individus) {
  pos.Ligne(generique);
  pos.Ligne(NombreNu(individus));
  for (const ColonneImportee& colonne : colonnes) {
    if (!colonne.DansPos()) continue;
    std::string ligne = Joindre({colonne.nomCourt, NombreFixe(static_cast<double>(colonne.position), 4, 0)});
    ligne += colonne.codeMax >= 100 ? "L3" : NombreFixe(colonne.codeMax, 2, 0);
    if (colonne.intitule.size() >= 4) ligne += Joindre({" $", colonne.intitule, "$"});
    pos.Ligne(ligne);
  }
}

}  // namespace quelvar::capture
