#include "core/dessin/barres.h"

#include <algorithm>

#include "core/chiffres/nombres.h"

namespace quelvar {

namespace {

// Points of the page.
constexpr double kLargeur = 620;
constexpr double kMarge = 12;
constexpr double kTete = 52;  // from the top of a group to its first bar
constexpr double kPied = 26;
constexpr double kPas = 14;
constexpr double kEpaisseur = 8;
constexpr double kBout = 575;         // where 100 stands
constexpr double kZeroAGauche = 245;  // where 0 stands when no bar goes below
constexpr double kZeroAuMilieu = 410;
constexpr double kFinDesNoms = 222;
constexpr double kLigneDuTitre = 22;    // below the top of its group
constexpr double kLigneDeLegende = 16;  // below the last bar
constexpr double kDepassement = 6;      // of the lines of the scale above the first bar
constexpr double kSurLEchelle = 3;      // from these lines up to their numbers
constexpr double kEcart = 3;            // from the end of a bar to its number
constexpr double kCorpsDuTitre = 11;
constexpr double kCorps = 8;
constexpr double kPetitCorps = 7;
constexpr double kHalo = 1.5;

constexpr int kPlein = 100;           // percent
constexpr int kPasDeLEchelle = 50;    // percent
constexpr double kTeinteSure = 0.75;  // of a bar that is filled
constexpr double kTraitDuZero = 0.75;
constexpr double kTraitFin = 0.4;

// Clips a label to the room of the names.
std::string Tenir(std::string texte, double largeur) {
  if (LargeurTexte(texte, kCorps) <= largeur) return texte;
  while (!texte.empty() && LargeurTexte(texte + "...", kCorps) > largeur) texte.pop_back();
  return texte + "...";
}

// Where the percentages stand across the page.
struct EchelleDesBarres {
  double zero;
  double pas;   // points for one percent
  int minimum;  // -100, or 0 when no bar goes below

  double X(int pourCent) const { return zero + pas * std::clamp(pourCent, minimum, kPlein); }
};

EchelleDesBarres EchelleDe(const std::vector<GroupeDeBarres>& groupes) {
  const auto negative = [](const Barre& barre) { return barre.pourCent < 0; };
  const bool deux = std::any_of(groupes.begin(), groupes.end(), [&](const GroupeDeBarres& groupe) {
    return std::any_of(groupe.barres.begin(), groupe.barres.end(), negative);
  });
  const double zero = deux ? kZeroAuMilieu : kZeroAGauche;
  return {zero, (kBout - zero) / kPlein, deux ? -kPlein : 0};
}

void TracerEchelle(Dessin& dessin, const EchelleDesBarres& echelle, double haut, double bas) {
  for (int pourCent = echelle.minimum; pourCent <= kPlein; pourCent += kPasDeLEchelle) {
    const double x = echelle.X(pourCent);
    dessin.Ligne({x, haut - kDepassement}, {x, bas},
                 {.couleur = Couleur::Gris,
                  .epaisseur = pourCent == 0 ? kTraitDuZero : kTraitFin,
                  .style = pourCent == 0 ? StyleTrait::Plein : StyleTrait::Pointilles});
    dessin.Texte({x, haut - kDepassement - kSurLEchelle}, Nombre(pourCent),
                 {.corps = kPetitCorps, .couleur = Couleur::Gris, .ancre = Ancre::Milieu});
  }
}

void TracerBarre(Dessin& dessin, const EchelleDesBarres& echelle, const Barre& barre, double milieu) {
  const double bout = echelle.X(barre.pourCent);
  const bool negative = barre.pourCent < 0;
  const Couleur couleur = negative ? Couleur::Rouge : Couleur::Bleu;
  dessin.Texte({kMarge, milieu}, Tenir(barre.intitule, kFinDesNoms - kMarge),
               {.corps = kCorps, .niveau = Niveau::Centre});
  if (barre.pourCent != 0)
    dessin.Rectangle({echelle.zero, milieu - kEpaisseur / 2}, {bout, milieu + kEpaisseur / 2},
                     {.couleur = couleur, .teinte = barre.sure ? kTeinteSure : 0}, {.couleur = couleur});
  dessin.Texte(
      {bout, milieu}, Nombre(barre.pourCent),
      {.corps = kPetitCorps, .ancre = negative ? Ancre::Fin : Ancre::Debut, .niveau = Niveau::Centre, .halo = kHalo},
      {negative ? -kEcart : kEcart, 0});
}

}  // namespace

Dessin DessinerBarres(const std::vector<GroupeDeBarres>& groupes, const std::string& legende) {
  double hauteur = kPied;
  for (const GroupeDeBarres& groupe : groupes) hauteur += kTete + kPas * static_cast<double>(groupe.barres.size());
  Dessin dessin(kLargeur, hauteur);
  const EchelleDesBarres echelle = EchelleDe(groupes);
  double haut = 0;
  std::int32_t element = 0;
  for (const GroupeDeBarres& groupe : groupes) {
    const double debut = haut + kTete;
    const double bas = debut + kPas * static_cast<double>(groupe.barres.size());
    dessin.Designer(-1);
    dessin.Texte({kMarge, haut + kLigneDuTitre}, Tenir(groupe.titre, kLargeur - 2 * kMarge),
                 {.corps = kCorpsDuTitre, .gras = true});
    TracerEchelle(dessin, echelle, debut, bas);
    for (std::size_t i = 0; i < groupe.barres.size(); ++i) {
      dessin.Designer(element++);
      TracerBarre(dessin, echelle, groupe.barres[i], debut + kPas * (static_cast<double>(i) + 0.5));
    }
    haut = bas;
  }
  dessin.Designer(-1);
  dessin.Texte({kMarge, haut + kLigneDeLegende}, legende, {.corps = kPetitCorps, .couleur = Couleur::Gris});
  return dessin;
}

}  // namespace quelvar
