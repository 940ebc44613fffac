#include "capture/colonnes/colonne.h"

#include <utility>

#include "capture/noms/courts.h"
#include "core/chiffres/nombres.h"
#include "core/enquete/posfile.h"
#include "core/programme/rapport.h"

namespace quelvar::capture {

std::vector<std::size_t> NommerColonnes(std::vector<ColonneImportee>& colonnes) {
  std::vector<std::size_t> rangs;
  std::vector<Titre> titres;
  for (std::size_t j = 0; j < colonnes.size(); ++j) {
    if (!colonnes[j].DansPos()) continue;
    rangs.push_back(j);
    titres.push_back({colonnes[j].intitule, colonnes[j].rang});
  }
  std::vector<NomCourt> noms = NommerTitres(titres);
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
  pos.Ligne(LigneDeTaille(individus));
  for (const ColonneImportee& colonne : colonnes) {
    if (!colonne.DansPos()) continue;
    const bool intitulee = colonne.intitule.size() >= 4 || colonne.intituleDonne;
    const std::string intitule = intitulee ? " " + EntreDollars(colonne.intitule) : std::string();
    pos.Ligne(LigneDeQuestion(colonne.nomCourt, static_cast<std::int64_t>(colonne.position),
                              TexteCodeMax(static_cast<int>(colonne.codeMax)),
                              Joindre({std::string_view(colonne.alphabetique ? "A" : ""), intitule})));
  }
}

}  // namespace quelvar::capture
