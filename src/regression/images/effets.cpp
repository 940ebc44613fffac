#include "regression/images/effets.h"

#include <algorithm>
#include <cmath>

#include "core/texte/nombres.h"

namespace quelvar::regression {

namespace {

constexpr double kLargeurPage = 620;
constexpr double kMarge = 20;
constexpr double kTexte = 170;  // points for the labels
constexpr double kHauteurLigne = 20;
constexpr double kTete = 56;
constexpr double kPied = 34;
constexpr double kDecalage = 4;  // between the two marks of a line
constexpr double kRayon = 3;

struct Etendue {
  double bas = 0;
  double haut = 0;
  void Voir(double valeur) {
    bas = std::min(bas, valeur);
    haut = std::max(haut, valeur);
  }
};

Etendue EtendueDe(const std::vector<LigneDEffet>& lignes) {
  Etendue etendue;
  for (const LigneDEffet& ligne : lignes) {
    if (ligne.moyenne) {
      etendue.Voir(*ligne.moyenne - ligne.ecartType);
      etendue.Voir(*ligne.moyenne + ligne.ecartType);
    }
    if (ligne.logistique) etendue.Voir(*ligne.logistique);
  }
  constexpr double kPas = 10;
  return {std::floor(etendue.bas / kPas) * kPas - kPas / 2, std::ceil(etendue.haut / kPas) * kPas + kPas / 2};
}

class Planche {
 public:
  Planche(Dessin& dessin, Etendue etendue, double bas) : dessin_(dessin), etendue_(etendue), bas_(bas) {}

  double X(double effet) const {
    const double largeur = kLargeurPage - kTexte - 2 * kMarge;
    return kMarge + kTexte + largeur * (effet - etendue_.bas) / (etendue_.haut - etendue_.bas);
  }

  void Graduer() {
    const double pas = etendue_.haut - etendue_.bas > 80 ? 20 : 10;
    for (double v = std::ceil(etendue_.bas / pas) * pas; v <= etendue_.haut; v += pas) {
      const bool zero = std::fabs(v) < pas / 2;
      dessin_.Ligne({X(v), kTete}, {X(v), bas_},
                    {.couleur = Couleur::Gris, .epaisseur = zero ? 1.0 : 0.4, .teinte = zero ? 1.0 : 0.5});
      dessin_.Texte({X(v), bas_ + 12}, Nombre(zero ? 0 : v), {.ancre = Ancre::Milieu});
    }
  }

  void Tracer(const LigneDEffet& ligne, double y) {
    dessin_.Texte({kMarge + kTexte - 8, y}, ligne.intitule,
                  {.gras = ligne.reference, .ancre = Ancre::Fin, .niveau = Niveau::Centre});
    if (ligne.reference) {
      dessin_.Cercle({X(0), y}, kRayon, {Couleur::Blanc, 1}, {});
      return;
    }
    if (ligne.moyenne) {
      const double haut = y - (ligne.logistique ? kDecalage : 0);
      dessin_.Ligne({X(*ligne.moyenne - ligne.ecartType), haut}, {X(*ligne.moyenne + ligne.ecartType), haut},
                    {.couleur = Couleur::Bleu, .epaisseur = 1.5});
      dessin_.Cercle({X(*ligne.moyenne), haut}, kRayon, {Couleur::Bleu, 1}, {.couleur = Couleur::Bleu});
    }
    if (ligne.logistique) {
      const double x = X(*ligne.logistique);
      const double bas = y + (ligne.moyenne ? kDecalage : 0);
      const Position losange[] = {{x - kRayon, bas}, {x, bas - kRayon}, {x + kRayon, bas}, {x, bas + kRayon}};
      dessin_.Polygone(losange, {Couleur::Rouge, 1});
    }
  }

 private:
  Dessin& dessin_;
  Etendue etendue_;
  double bas_;
};

}  // namespace

Dessin DessinerEffets(std::string_view titre, const std::vector<LigneDEffet>& lignes) {
  const double bas = kTete + kHauteurLigne * static_cast<double>(lignes.size());
  Dessin dessin(kLargeurPage, bas + kPied);
  dessin.Texte({kMarge, 20}, titre, {.corps = 11, .gras = true});
  dessin.Texte(
      {kMarge, 36},
      "Effets en points : cercle et barre, moyenne des sous-effets à un écart-type ; losange, modèle logistique"_w);
  Planche planche(dessin, EtendueDe(lignes), bas);
  planche.Graduer();
  for (std::size_t i = 0; i < lignes.size(); ++i) {
    dessin.Designer(static_cast<std::int32_t>(i));
    planche.Tracer(lignes[i], kTete + kHauteurLigne * (static_cast<double>(i) + 0.5));
  }
  return dessin;
}

}  // namespace quelvar::regression
