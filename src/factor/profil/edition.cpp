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

FormeEnRangees FormeDe(const TableauEdite& tableau, bool detail) {
  FormeEnRangees forme{.titre = 4, .places = {{"", 5}, {"", 5, Elargissement::DerriereUnNombre}}, .avantIntitule = " "};
  if (detail) {
    const int enPlus =
        ColonnesEnPlus(tableau, kPremiereDuDetail, kPremiereDuDetail + kColonnesDuDetail, kUsuellesDuDetail);
    forme.places.resize(forme.places.size() + kColonnesDuDetail, {"", kEntiersDuDetail, Elargissement::Aucun, enPlus});
  }
  forme.places.push_back({" ", 4});
  return forme;
}

}  // namespace

void ImprimerProfil(Rapport& rapport, const ProfilDeModalite& profil, bool detail) {
  rapport.Ligne();
  const TableauEdite tableau = TableDuProfil(profil, detail);
  ImprimerRangees(rapport, tableau, FormeDe(tableau, detail));
}

}  // namespace quelvar::factor
