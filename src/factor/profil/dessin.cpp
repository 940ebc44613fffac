#include "factor/profil/dessin.h"

#include <algorithm>

#include "core/texte/nombres.h"

namespace quelvar::factor {

namespace {

// Points of the page.
constexpr double kLargeur = 620;
constexpr double kMarge = 12;
constexpr double kHautDesBarres = 52;
constexpr double kPas = 14;
constexpr double kEpaisseur = 8;
constexpr double kZero = 410;      // where no attraction stands
constexpr double kEchelle = 1.65;  // points for one percent
constexpr double kFinDesNoms = 222;
constexpr double kCorps = 8;

// Clips a label to the room of the names.
std::string Tenir(std::string texte, double largeur) {
  if (LargeurTexte(texte, kCorps) <= largeur) return texte;
  while (!texte.empty() && LargeurTexte(texte + "...", kCorps) > largeur) texte.pop_back();
  return texte + "...";
}

void TracerEchelle(Dessin& dessin, double bas) {
  for (const int pem : {-100, -50, 0, 50, 100}) {
    const double x = kZero + kEchelle * pem;
    dessin.Ligne({x, kHautDesBarres - 6}, {x, bas},
                 {.couleur = Couleur::Gris,
                  .epaisseur = pem == 0 ? 0.75 : 0.4,
                  .style = pem == 0 ? StyleTrait::Plein : StyleTrait::Pointilles});
    dessin.Texte({x, kHautDesBarres - 9}, Nombre(pem), {.corps = 7, .couleur = Couleur::Gris, .ancre = Ancre::Milieu});
  }
}

void TracerBarre(Dessin& dessin, const LigneDeProfil& ligne, double milieu) {
  const int pem = ligne.attraction.pem;
  const double bout = kZero + kEchelle * std::clamp(pem, -100, 100);
  const Couleur couleur = pem < 0 ? Couleur::Rouge : Couleur::Bleu;
  const bool sure = ClasseKhi2(ligne.attraction.khi2) >= 2;
  const std::string nom = ligne.intitule.empty() ? ligne.nom : Joindre({ligne.nom, "  ", ligne.intitule});
  dessin.Texte({kMarge, milieu}, Tenir(nom, kFinDesNoms - kMarge), {.corps = kCorps, .niveau = Niveau::Centre});
  if (pem != 0)
    dessin.Rectangle({kZero, milieu - kEpaisseur / 2}, {bout, milieu + kEpaisseur / 2},
                     {.couleur = couleur, .teinte = sure ? 0.75 : 0}, {.couleur = couleur});
  dessin.Texte({bout, milieu}, Nombre(pem),
               {.corps = 7, .ancre = pem < 0 ? Ancre::Fin : Ancre::Debut, .niveau = Niveau::Centre, .halo = 1.5},
               {pem < 0 ? -3.0 : 3.0, 0});
}

}  // namespace

Dessin DessinerProfil(const ProfilDeModalite& profil) {
  const double bas = kHautDesBarres + kPas * static_cast<double>(profil.lignes.size());
  Dessin dessin(kLargeur, bas + 26);
  dessin.Texte({kMarge, 22},
               Tenir(Joindre({"Profil de la modalité "_w, profil.nom, " ", profil.intitule}), kLargeur - 2 * kMarge),
               {.corps = 11, .gras = true});
  TracerEchelle(dessin, bas);
  for (std::size_t i = 0; i < profil.lignes.size(); ++i) {
    dessin.Designer(static_cast<std::int32_t>(i));
    TracerBarre(dessin, profil.lignes[i], kHautDesBarres + kPas * (static_cast<double>(i) + 0.5));
  }
  dessin.Designer(-1);
  dessin.Texte({kMarge, bas + 16}, "PEM en % ; barre pleine : écart sûr à 95 %"_w,
               {.corps = 7, .couleur = Couleur::Gris});
  return dessin;
}

}  // namespace quelvar::factor
