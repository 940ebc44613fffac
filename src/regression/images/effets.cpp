#include "regression/images/effets.h"

#include <algorithm>
#include <cmath>

#include "core/texte/nombres.h"

namespace quelvar::regression {

namespace {

// Points of the page.
constexpr double kLargeurPage = 620;
constexpr double kMarge = 20;
constexpr double kTexte = 160;  // room of the labels
constexpr double kHauteurLigne = 20;
constexpr double kEntreQuestions = 6;
constexpr double kTete = 54;
constexpr double kPied = 62;
constexpr double kDecalage = 4;  // between the two marks of a line
constexpr double kRayon = 3;
constexpr double kBoutDeBarre = 3;
constexpr Plume kBarre{.couleur = Couleur::Bleu, .epaisseur = 1.5};

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

void TracerReference(Dessin& dessin, Position place) { dessin.Cercle(place, kRayon, {Couleur::Blanc, 1}, {}); }

// `demi`: half the length of the interval, points of the page.
void TracerMoyenne(Dessin& dessin, Position place, double demi) {
  dessin.Ligne({place.x - demi, place.y}, {place.x + demi, place.y}, kBarre);
  for (const double x : {place.x - demi, place.x + demi})
    dessin.Ligne({x, place.y - kBoutDeBarre}, {x, place.y + kBoutDeBarre}, kBarre);
  dessin.Cercle(place, kRayon, {Couleur::Bleu, 1}, {.couleur = Couleur::Bleu});
}

void TracerLosange(Dessin& dessin, Position place) {
  const Position losange[] = {{place.x - kRayon, place.y},
                              {place.x, place.y - kRayon},
                              {place.x + kRayon, place.y},
                              {place.x, place.y + kRayon}};
  dessin.Polygone(losange, {Couleur::Rouge, 1});
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
    dessin_.Texte({X((etendue_.bas + etendue_.haut) / 2), bas_ + 26}, "Effet en points de pourcentage",
                  {.ancre = Ancre::Milieu});
  }

  void Separer(double y) {
    dessin_.Ligne({kMarge, y}, {kLargeurPage - kMarge, y},
                  {.couleur = Couleur::Gris, .epaisseur = 0.4, .style = StyleTrait::Pointilles});
  }

  void Tracer(const LigneDEffet& ligne, double y) {
    dessin_.Texte({kMarge + kTexte - 8, y}, ligne.intitule,
                  {.gras = ligne.reference, .ancre = Ancre::Fin, .niveau = Niveau::Centre});
    if (ligne.reference) return TracerReference(dessin_, {X(0), y});
    if (ligne.moyenne) {
      const double haut = y - (ligne.logistique ? kDecalage : 0);
      TracerMoyenne(dessin_, {X(*ligne.moyenne), haut}, X(*ligne.moyenne + ligne.ecartType) - X(*ligne.moyenne));
    }
    if (ligne.logistique) TracerLosange(dessin_, {X(*ligne.logistique), y + (ligne.moyenne ? kDecalage : 0)});
  }

 private:
  Dessin& dessin_;
  Etendue etendue_;
  double bas_;
};

// The reference situation by its modalities, as far as the page goes.
std::string SousTitre(const ImageDesEffets& image) {
  std::string texte = Joindre({"Effets des modalités, comparées à la situation de référence"_w});
  std::string_view lien = " : ";
  for (const LigneDEffet& ligne : image.lignes) {
    if (!ligne.reference) continue;
    std::string suite = Joindre({texte, lien, ligne.intitule});
    if (LargeurTexte(suite, Police{}.corps) > kLargeurPage - 3 * kMarge) return texte + ", ...";
    texte = std::move(suite);
    lien = ", ";
  }
  return texte;
}

void TracerLegende(Dessin& dessin, const ImageDesEffets& image, double y) {
  const bool tabulaires = std::any_of(image.lignes.begin(), image.lignes.end(),
                                      [](const LigneDEffet& ligne) { return ligne.moyenne.has_value(); });
  double x = kMarge;
  const auto mot = [&](Texte texte, double ecart) {
    dessin.Texte({x + ecart, y}, texte, {.niveau = Niveau::Centre});
    x += ecart + LargeurTexte(texte, Police{}.corps) + 16;
  };
  if (tabulaires) {
    constexpr double kDemiBarre = 12;
    TracerMoyenne(dessin, {x + kDemiBarre, y}, kDemiBarre);
    mot("moyenne des sous-effets, à un écart-type"_w, 2 * kDemiBarre + 6);
  }
  TracerLosange(dessin, {x + kRayon, y});
  mot("modèle logistique"_w, 2 * kRayon + 6);
  TracerReference(dessin, {x + kRayon, y});
  mot("modalité de référence"_w, 2 * kRayon + 6);
}

}  // namespace

Dessin DessinerEffets(const ImageDesEffets& image) {
  std::vector<double> places;
  double bas = kTete;
  for (const LigneDEffet& ligne : image.lignes) {
    if (ligne.nouvelleQuestion) bas += kEntreQuestions;
    places.push_back(bas + kHauteurLigne / 2);
    bas += kHauteurLigne;
  }
  Dessin dessin(kLargeurPage, bas + kPied);
  dessin.Texte({kMarge, 20}, image.titre, {.corps = 11, .gras = true});
  dessin.Texte({kMarge, 36}, SousTitre(image));
  Planche planche(dessin, EtendueDe(image.lignes), bas);
  planche.Graduer();
  for (std::size_t i = 0; i < image.lignes.size(); ++i) {
    dessin.Designer(-1);
    if (image.lignes[i].nouvelleQuestion) planche.Separer(places[i] - (kHauteurLigne + kEntreQuestions) / 2);
    dessin.Designer(static_cast<std::int32_t>(i));
    planche.Tracer(image.lignes[i], places[i]);
  }
  dessin.Designer(-1);
  TracerLegende(dessin, image, bas + 46);
  return dessin;
}

}  // namespace quelvar::regression
