#include "core/dessin/barres.h"

#include <algorithm>

#include "core/texte/nombres.h"

namespace quelvar {

namespace {

// Points of the page.
constexpr double kLargeur = 620;
constexpr double kMarge = 12;
constexpr double kTete = 52;  // from the top of a group to its first bar
constexpr double kPied = 26;
constexpr double kPas = 14;
constexpr double kEpaisseur = 8;
constexpr double kZero = 410;      // where nothing attracts
constexpr double kEchelle = 1.65;  // points for one percent
constexpr double kFinDesNoms = 222;
constexpr double kCorps = 8;
constexpr double kPetitCorps = 7;

// Clips a label to the room of the names.
std::string Tenir(std::string texte, double largeur) {
  if (LargeurTexte(texte, kCorps) <= largeur) return texte;
  while (!texte.empty() && LargeurTexte(texte + "...", kCorps) > largeur) texte.pop_back();
  return texte + "...";
}

void TracerEchelle(Dessin& dessin, double haut, double bas) {
  for (const int pourCent : {-100, -50, 0, 50, 100}) {
    const double x = kZero + kEchelle * pourCent;
    dessin.Ligne({x, haut - 6}, {x, bas},
                 {.couleur = Couleur::Gris,
                  .epaisseur = pourCent == 0 ? 0.75 : 0.4,
                  .style = pourCent == 0 ? StyleTrait::Plein : StyleTrait::Pointilles});
    dessin.Texte({x, haut - 9}, Nombre(pourCent),
                 {.corps = kPetitCorps, .couleur = Couleur::Gris, .ancre = Ancre::Milieu});
  }
}

void TracerBarre(Dessin& dessin, const Barre& barre, double milieu) {
  const double bout = kZero + kEchelle * std::clamp(barre.pourCent, -100, 100);
  const bool negative = barre.pourCent < 0;
  const Couleur couleur = negative ? Couleur::Rouge : Couleur::Bleu;
  dessin.Texte({kMarge, milieu}, Tenir(barre.intitule, kFinDesNoms - kMarge),
               {.corps = kCorps, .niveau = Niveau::Centre});
  if (barre.pourCent != 0)
    dessin.Rectangle({kZero, milieu - kEpaisseur / 2}, {bout, milieu + kEpaisseur / 2},
                     {.couleur = couleur, .teinte = barre.sure ? 0.75 : 0}, {.couleur = couleur});
  dessin.Texte(
      {bout, milieu}, Nombre(barre.pourCent),
      {.corps = kPetitCorps, .ancre = negative ? Ancre::Fin : Ancre::Debut, .niveau = Niveau::Centre, .halo = 1.5},
      {negative ? -3.0 : 3.0, 0});
}

}  // namespace

Dessin DessinerBarres(const std::vector<GroupeDeBarres>& groupes, const std::string& legende) {
  double hauteur = kPied;
  for (const GroupeDeBarres& groupe : groupes) hauteur += kTete + kPas * static_cast<double>(groupe.barres.size());
  Dessin dessin(kLargeur, hauteur);
  double haut = 0;
  std::int32_t element = 0;
  for (const GroupeDeBarres& groupe : groupes) {
    const double debut = haut + kTete;
    const double bas = debut + kPas * static_cast<double>(groupe.barres.size());
    dessin.Designer(-1);
    dessin.Texte({kMarge, haut + 22}, Tenir(groupe.titre, kLargeur - 2 * kMarge), {.corps = 11, .gras = true});
    TracerEchelle(dessin, debut, bas);
    for (std::size_t i = 0; i < groupe.barres.size(); ++i) {
      dessin.Designer(element++);
      TracerBarre(dessin, groupe.barres[i], debut + kPas * (static_cast<double>(i) + 0.5));
    }
    haut = bas;
  }
  dessin.Designer(-1);
  dessin.Texte({kMarge, haut + 16}, legende, {.corps = kPetitCorps, .couleur = Couleur::Gris});
  return dessin;
}

}  // namespace quelvar
