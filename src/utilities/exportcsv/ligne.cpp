#include "utilities/exportcsv/ligne.h"

#include "core/chiffres/nombres.h"
#include "core/programme/rapport.h"

namespace quelvar::utilities {

LigneCsv::LigneCsv(const std::vector<ColonneCsv>& colonnes, const Tableur& tableur)
    : colonnes_(colonnes), tableur_(tableur), cadrages_(colonnes.size()) {
  constexpr std::size_t kFinDeLigne = 2;
  plusLongue_ = kFinDeLigne;
  for (const ColonneCsv& colonne : colonnes) plusLongue_ += colonne.plusLongue;
}

char* LigneCsv::Ecrire(const char* individu, char* place) {
  std::size_t fautes = 0;
  for (const ColonneCsv& colonne : colonnes_) {
    if (colonne.texte) {
      place = EcrireTexte({individu + colonne.champ.debut, colonne.champ.largeur},
                          cadrages_[static_cast<std::size_t>(&colonne - colonnes_.data())], place);
      continue;
    }
    const std::size_t rang = colonne.PlaceDe(individu);
    fautes += rang == colonne.PasUnCode() ? 1U : 0U;
    place = colonne.cellules[rang].Copier(place);
  }
  ++individus_;
  if (fautes > 0) Noter(individu, fautes);
  if (!colonnes_.empty()) --place;
  *place++ = '\r';
  *place++ = '\n';
  return place;
}

char* LigneCsv::EcrireTexte(std::string_view champ, Cadrage& cadrage, char* place) const {
  const std::string_view texte = Rogner(champ);
  if (!texte.empty()) cadrage.Voir(champ);
  const std::string cellule = tableur_.Cellule(texte);
  place += cellule.copy(place, cellule.size());
  *place++ = tableur_.Separateur();
  return place;
}

void LigneCsv::Noter(const char* individu, std::size_t fautes) {
  sansCode_.nombre += static_cast<std::int64_t>(fautes);
  if (!sansCode_.premiere.empty()) return;
  for (const ColonneCsv& colonne : colonnes_) {
    if (colonne.texte || colonne.PlaceDe(individu) != colonne.PasUnCode()) continue;
    sansCode_.premiere =
        Joindre({"individu ", Nombre(individus_), ", question ", colonne.nom, " (",
                 Rogner(std::string_view(individu + colonne.champ.debut, colonne.champ.largeur)), ")"});
    return;
  }
}

}  // namespace quelvar::utilities
