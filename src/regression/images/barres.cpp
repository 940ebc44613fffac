#include "regression/images/barres.h"

#include "core/texte/nombres.h"

namespace quelvar::regression {

namespace {

constexpr double kLargeurPage = 620;
constexpr double kMarge = 20;
constexpr double kTexte = 190;  // points for the labels
constexpr double kHauteurBarre = 12;
constexpr double kEntreBarres = 4;
constexpr double kTitre = 34;

}  // namespace

Dessin DessinerProfils(const std::vector<BarresDeProfil>& profils) {
  const double echelle = (kLargeurPage - 3 * kMarge - kTexte) / 100;
  double hauteur = kMarge;
  for (const BarresDeProfil& profil : profils)
    hauteur += kTitre + static_cast<double>(profil.barres.size()) * (kHauteurBarre + kEntreBarres);
  Dessin dessin(kLargeurPage, hauteur + kMarge);
  double y = kMarge;
  std::int32_t id = 0;
  for (const BarresDeProfil& profil : profils) {
    dessin.Texte({kMarge, y + 12}, profil.titre, {.corps = 11, .gras = true});
    y += kTitre;
    for (const auto& [intitule, pem] : profil.barres) {
      dessin.Designer(id++);
      const double x = kMarge + kTexte;
      const double milieu = y + kHauteurBarre / 2;
      dessin.Texte({x - 6, milieu}, intitule, {.ancre = Ancre::Fin, .niveau = Niveau::Centre});
      dessin.Rectangle({x, y}, {x + pem * echelle, y + kHauteurBarre}, {Couleur::Bleu, 0.6});
      dessin.Texte({x + pem * echelle + 4, milieu}, Nombre(pem), {.niveau = Niveau::Centre});
      y += kHauteurBarre + kEntreBarres;
    }
  }
  return dessin;
}

}  // namespace quelvar::regression
