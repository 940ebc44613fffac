#include "factor/profil/edition.h"

#include <algorithm>

#include "core/resultats/largeurfixe.h"
#include "core/resultats/rangees.h"

namespace quelvar::factor {

namespace {

constexpr int kDecimalesDuDetail = 2;
constexpr int kEntiersDuDetail = 8;

// Columns that the measures of the chi-square want beyond the usual ones: they widen together.
int DetailEnPlus(const ProfilDeModalite& profil) {
  constexpr int kUsuelles = kEntiersDuDetail + 1 + kDecimalesDuDetail;
  int enPlus = 0;
  for (const LigneDeProfil& ligne : profil.lignes)
    for (const double valeur : {ligne.attraction.theorique, ligne.attraction.ecart, ligne.attraction.khi2})
      enPlus = std::max(enPlus, ColonnesEnPlus(valeur, kDecimalesDuDetail, kUsuelles));
  return enPlus;
}

FormeEnRangees FormeDe(const ProfilDeModalite& profil, bool detail) {
  FormeEnRangees forme{.titre = 4, .places = {{"", 5}, {"", 5, Elargissement::DerriereUnNombre}}, .avantIntitule = " "};
  if (detail)
    forme.places.resize(forme.places.size() + 3, {"", kEntiersDuDetail, Elargissement::Aucun, DetailEnPlus(profil)});
  forme.places.push_back({" ", 4});
  return forme;
}

}  // namespace

void ImprimerProfil(Rapport& rapport, const ProfilDeModalite& profil, bool detail) {
  rapport.Ligne();
  ImprimerRangees(rapport, TableDuProfil(profil, detail), FormeDe(profil, detail));
}

}  // namespace quelvar::factor
