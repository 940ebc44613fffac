#include "regression/images/effets.h"

#include <algorithm>
#include <cmath>

#include "core/chiffres/nombres.h"

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
constexpr double kCorpsDuTitre = 11;     // above that of the other texts, which have the one of Police
constexpr double kTitre = 20;            // down to the line of the title
constexpr double kSousTitre = 36;        // and to the one below it
constexpr double kSousLAxe = 12;         // from the axis down to its numbers
constexpr double kSousLesNombres = 26;   // and to its caption
constexpr double kSousLeCadre = 46;      // and to the legend
constexpr double kAvantLeCadre = 8;      // between a label and the frame
constexpr double kEntreLesMots = 16;     // of the legend
constexpr double kDerriereLaMarque = 6;  // of the legend, before its word
// Points of percentage between two numbers of the axis: fewer numbers where they would touch.
constexpr double kPasSerre = 10;
constexpr double kPasLarge = 20;
constexpr double kEtendueLarge = 80;
constexpr Plume kBarre{.couleur = Couleur::Bleu, .epaisseur = 1.5};
constexpr Plume kAxeDuZero{.couleur = Couleur::Gris, .epaisseur = 1};
constexpr Plume kGraduation{.couleur = Couleur::Gris, .epaisseur = 0.4, .teinte = 0.5};
constexpr Plume kEntreDeuxQuestions{.couleur = Couleur::Gris, .epaisseur = 0.4, .style = StyleTrait::Pointilles};

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
  return {std::floor(etendue.bas / kPasSerre) * kPasSerre - kPasSerre / 2,
          std::ceil(etendue.haut / kPasSerre) * kPasSerre + kPasSerre / 2};
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
    const double pas = etendue_.haut - etendue_.bas > kEtendueLarge ? kPasLarge : kPasSerre;
    for (double v = std::ceil(etendue_.bas / pas) * pas; v <= etendue_.haut; v += pas) {
      const bool zero = std::fabs(v) < pas / 2;
      dessin_.Ligne({X(v), kTete}, {X(v), bas_}, zero ? kAxeDuZero : kGraduation);
      dessin_.Texte({X(v), bas_ + kSousLAxe}, Nombre(zero ? 0 : v), {.ancre = Ancre::Milieu});
    }
    dessin_.Texte({X((etendue_.bas + etendue_.haut) / 2), bas_ + kSousLesNombres}, "Effet en points de pourcentage",
                  {.ancre = Ancre::Milieu});
  }

  void Separer(double y) { dessin_.Ligne({kMarge, y}, {kLargeurPage - kMarge, y}, kEntreDeuxQuestions); }

  void Tracer(const LigneDEffet& ligne, double y) {
    dessin_.Texte({kMarge + kTexte - kAvantLeCadre, y}, ligne.intitule,
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
    x += ecart + LargeurTexte(texte, Police{}.corps) + kEntreLesMots;
  };
  if (tabulaires) {
    constexpr double kDemiBarre = 12;
    TracerMoyenne(dessin, {x + kDemiBarre, y}, kDemiBarre);
    mot("moyenne des sous-effets, à un écart-type"_w, 2 * kDemiBarre + kDerriereLaMarque);
  }
  TracerLosange(dessin, {x + kRayon, y});
  mot("modèle logistique"_w, 2 * kRayon + kDerriereLaMarque);
  TracerReference(dessin, {x + kRayon, y});
  mot("modalité de référence"_w, 2 * kRayon + kDerriereLaMarque);
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
  dessin.Texte({kMarge, kTitre}, image.titre, {.corps = kCorpsDuTitre, .gras = true});
  dessin.Texte({kMarge, kSousTitre}, SousTitre(image));
  Planche planche(dessin, EtendueDe(image.lignes), bas);
  planche.Graduer();
  for (std::size_t i = 0; i < image.lignes.size(); ++i) {
    dessin.Designer(-1);
    if (image.lignes[i].nouvelleQuestion) planche.Separer(places[i] - (kHauteurLigne + kEntreQuestions) / 2);
    dessin.Designer(static_cast<std::int32_t>(i));
    planche.Tracer(image.lignes[i], places[i]);
  }
  dessin.Designer(-1);
  TracerLegende(dessin, image, bas + kSousLeCadre);
  return dessin;
}

}  // namespace quelvar::regression
