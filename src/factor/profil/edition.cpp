#include "factor/profil/edition.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/texte/nombres.h"

namespace quelvar::factor {

namespace {

constexpr int kLargeurNom = 4;
constexpr int kLargeurPem = 5;

// Widths of the columns: at least those of the headings, wider for a number that would touch its neighbour.
struct Largeurs {
  int effectif = 5;
  int detail = 8;  // of the whole part, before two decimals
};

Largeurs LargeursDe(const ProfilDeModalite& profil) {
  Largeurs largeurs;
  const auto elargir = [](int& largeur, double valeur) {
    largeur = std::max(largeur, static_cast<int>(Nombre(valeur).size()) + 1);
  };
  for (const LigneDeProfil& ligne : profil.lignes) {
    elargir(largeurs.effectif, std::floor(ligne.ensemble));
    for (const double valeur : {ligne.attraction.theorique, ligne.attraction.ecart, ligne.attraction.khi2})
      elargir(largeurs.detail, std::trunc(valeur));
  }
  return largeurs;
}

}  // namespace

std::string_view MarqueDuTest(double khi2) {
  static constexpr std::array<std::string_view, 4> kMarques = {"ns  ", "*   ", "**  ", "*** "};
  return kMarques[static_cast<std::size_t>(ClasseKhi2(khi2))];
}

void EcrireProfil(Rapport& rapport, const ProfilDeModalite& profil, bool detail) {
  const Largeurs largeurs = LargeursDe(profil);
  rapport.Ligne();
  rapport.Ligne({"Profil de la modalité "_w, profil.nom, " ", profil.intitule});
  rapport.Ligne();
  rapport.Suite({"Nom  ", " PEM", CadreDroit(" Obs.", largeurs.effectif)});
  if (detail)
    for (const std::string_view titre : {"Théorique"_w, "Ecart"_w, "Khideux"_w})
      rapport.Suite(CadreDroit(titre, largeurs.detail + 3));
  rapport.Ligne({" Test", " Intitulé"_w});
  for (const LigneDeProfil& ligne : profil.lignes) {
    rapport.Suite({CadreGauche(ligne.nom, kLargeurNom), NombreFixe(ligne.attraction.pem, kLargeurPem, 0),
                   NombreFixe(ligne.ensemble, largeurs.effectif, 0)});
    if (detail)
      for (const double valeur : {ligne.attraction.theorique, ligne.attraction.ecart, ligne.attraction.khi2})
        rapport.Suite(NombreFixe(valeur, largeurs.detail, 2));
    rapport.Ligne({" ", MarqueDuTest(ligne.attraction.khi2), " ", ligne.intitule});
  }
}

}  // namespace quelvar::factor
