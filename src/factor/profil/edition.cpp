#include "factor/profil/edition.h"

#include <cstddef>

#include "core/resultats/largeurfixe.h"
#include "core/resultats/rangees.h"

namespace quelvar::factor {

namespace {

// The measures of the chi-square: their columns, and the places before the point and behind it.
constexpr std::size_t kPremiereDuDetail = 2;
constexpr std::size_t kColonnesDuDetail = 3;
constexpr int kEntiersDuDetail = 8;
constexpr int kDecimalesDuDetail = 2;
constexpr int kUsuellesDuDetail = kEntiersDuDetail + 1 + kDecimalesDuDetail;

// A place whose title is set right in as many columns as its values take.
PlaceEnRangee SousUnTitre(PlaceEnRangee place, int colonnesDuTitre) {
  place.titre = TitreDeColonne::ADroite;
  place.colonnesDuTitre = colonnesDuTitre;
  return place;
}

FormeEnRangees FormeDe(const TableauEdite& tableau, bool detail) {
  constexpr int kTitreDuPem = 6;  // beside the shorter one of the names
  FormeEnRangees forme{
      .titre = 4,
      .places = {SousUnTitre({"", 5}, kTitreDuPem), SousUnTitre({"", 5, Elargissement::DerriereUnNombre}, 5)},
      .avantIntitule = " "};
  if (detail) {
    const int enPlus =
        ColonnesEnPlus(tableau, kPremiereDuDetail, kPremiereDuDetail + kColonnesDuDetail, kUsuellesDuDetail);
    forme.places.resize(forme.places.size() + kColonnesDuDetail,
                        SousUnTitre({"", kEntiersDuDetail, Elargissement::Aucun, enPlus}, kUsuellesDuDetail));
  }
  forme.places.push_back({.avant = " ", .entiers = 4, .avantTitre = " ", .derriereTitre = " Intitulé"_w});
  return forme;
}

}  // namespace

void ImprimerProfil(Rapport& rapport, const ProfilDeModalite& profil, bool detail) {
  rapport.Ligne();
  const TableauEdite tableau = TableDuProfil(profil, detail);
  ImprimerRangees(rapport, tableau, FormeDe(tableau, detail));
}

}  // namespace quelvar::factor
