// Draws the triangular graph: sides, graduations, vertices, points, and labels that keep clear of each other.
#include <algorithm>
#include <cmath>
#include <cstdint>

#include "core/chiffres/nombres.h"
#include "tables/triangle/placement.h"
#include "tables/triangle/triangle.h"

namespace quelvar::tables {

namespace {

// Points of the page at the start.
constexpr double kLargeur = 640;
constexpr double kHauteur = 560;
constexpr double kMarge = 64;
constexpr double kHaut = 44;          // room of the title
constexpr double kLigneDuTitre = 26;  // from the top
constexpr double kSousUnSommet = 26;  // of the base, clear of the values of its side
constexpr double kSurLeSommet = 14;   // of the top
constexpr double kSousLaBase = 9;     // values of the first percentage
constexpr double kHorsDUnCote = 5;    // values of the others
constexpr double kDemiMarque = 2;     // what a mark takes for the labels around it
constexpr double kBaisseDEtoile = 2;  // "*" stands above the middle of its line
constexpr double kPlusPetitRayon = 0.8, kRayonParMarque = 0.7;
constexpr double kIntituleEcarte = 12;  // a label farther than this from its point has a line to it

constexpr double kTraitFin = 0.3, kTraitDeCote = 1, kTraitDeLien = 0.6, kTraitDeMarque = 0.5;
constexpr double kTeinteDeMarque = 0.7;
constexpr double kCorpsDuTitre = 12;
constexpr double kCorpsDesSommets = 10;
constexpr double kPetitsCaracteres = 6.5;  // the smallest that a print keeps legible
constexpr double kCaracteresMoyens = 8;
constexpr double kGrandsCaracteres = 10.5;
constexpr double kCorpsDesGraduations = kPetitsCaracteres;
constexpr double kCorpsDEtoile = 9;
constexpr double kCorpsDuCentre = 14;

constexpr double kHorsDuTriangle = 1e9;  // beyond every coordinate

// White around the letters: it costs a screen more than all the rest, and among thousands it hides the points.
constexpr std::size_t kPointsAHalo = 150;

// The triangle that the sides leave, and the page that shows it.
class Cadre {
 public:
  explicit Cadre(const EtatTriangle& etat)
      : etat_(etat),
        dessin_(kLargeur * etat.largeur * etat.fenetre, kHauteur * etat.hauteur * etat.fenetre, Vue(etat),
                ZoneDe(etat)) {}

  Dessin& Page() { return dessin_; }
  Position Projeter(double a, double b) const { return ProjeterTriangle(etat_.reglages.forme, a, b); }
  Position SurPage(double a, double b) const { return dessin_.VersPage(Projeter(a, b)); }

  // Third vertex, first and second: where each of the three percentages is largest.
  std::array<Position, 3> Sommets() const {
    const CotesTriangle& c = etat_.cotes;
    return {Position{c.gauche, c.bas}, Position{c.droit - c.bas, c.bas}, Position{c.gauche, c.droit - c.gauche}};
  }

 private:
  static Fenetre Vue(const EtatTriangle& etat) {
    const CotesTriangle& c = etat.cotes;
    Fenetre vue{kHorsDuTriangle, -kHorsDuTriangle, -kHorsDuTriangle, kHorsDuTriangle};
    for (const Position sommet :
         {Position{c.gauche, c.bas}, Position{c.droit - c.bas, c.bas}, Position{c.gauche, c.droit - c.gauche}}) {
      const Position p = ProjeterTriangle(etat.reglages.forme, sommet.x, sommet.y);
      vue.gauche = std::min(vue.gauche, p.x);
      vue.droite = std::max(vue.droite, p.x);
      vue.bas = std::min(vue.bas, p.y);
      vue.haut = std::max(vue.haut, p.y);
    }
    return vue;
  }
  // The drawing keeps its size in the middle of a window that grows around it.
  static Zone ZoneDe(const EtatTriangle& etat) {
    const double largeur = kLargeur * etat.largeur;
    const double hauteur = kHauteur * etat.hauteur;
    const double margeX = kMarge + largeur * (etat.fenetre - 1) / 2;
    const double margeY = hauteur * (etat.fenetre - 1) / 2;
    return {margeX, margeY + kMarge + kHaut, largeur - 2 * kMarge, hauteur - 2 * kMarge - kHaut};
  }

  const EtatTriangle& etat_;
  Dessin dessin_;
};

double Corps(TailleTriangle taille) {
  switch (taille) {
    case TailleTriangle::Petite: return kPetitsCaracteres;
    case TailleTriangle::Grande: return kGrandsCaracteres;
    case TailleTriangle::Moyenne: break;
  }
  return kCaracteresMoyens;
}

// Percent between two values of a side that is longer than so many percent.
struct Graduation {
  double auDela;
  double pas;
};
constexpr Graduation kGraduations[] = {{45, 10}, {18, 5}, {8, 2}};
constexpr double kPlusPetitPas = 1;

// A side of three percent and more has three to eleven values.
double PasDeGraduation(double etendue) {
  for (const Graduation& graduation : kGraduations)
    if (etendue > graduation.auDela) return graduation.pas;
  return kPlusPetitPas;
}

Position Ajouter(Position a, Position b) { return {a.x + b.x, a.y + b.y}; }

void EcrireValeur(Cadre& cadre, Position a, double valeur, Position decalage, Ancre ancre, PageOccupee& occupation) {
  const Police police{
      .corps = kCorpsDesGraduations, .couleur = Couleur::Gris, .ancre = ancre, .niveau = Niveau::Centre};
  const std::string texte = Nombre(Arrondir(valeur, 1));
  cadre.Page().Texte(cadre.Projeter(a.x, a.y), texte, police, decalage);
  occupation.Prendre(ZoneDuTexte(Ajouter(cadre.SurPage(a.x, a.y), decalage), texte, police));
}

void TracerGraduation(Cadre& cadre, Position a, Position b, double valeur, Position decalage, Ancre ancre,
                      PageOccupee& occupation) {
  cadre.Page().Ligne(cadre.Projeter(a.x, a.y), cadre.Projeter(b.x, b.y),
                     {.couleur = Couleur::GrisClair, .epaisseur = kTraitFin, .style = StyleTrait::Pointilles});
  EcrireValeur(cadre, a, valeur, decalage, ancre, occupation);
}

constexpr double kArrondi = 1e-9;  // of a value, in percent or in steps

// The sides, and along each the values of one percentage from its lower to its upper limit. Of a right angle both
// upright sides bear the ordinate, on the same lines.
void TracerCotes(Cadre& cadre, const EtatTriangle& etat, PageOccupee& occupation) {
  const CotesTriangle& c = etat.cotes;
  const double etendue = c.droit - c.gauche - c.bas;
  const double pas = PasDeGraduation(etendue);
  const auto premiere = [pas](double limite) { return std::ceil(limite / pas - kArrondi) * pas; };
  cadre.Page().Calquer("cotes");
  for (double v = premiere(c.gauche); v <= c.gauche + etendue + kArrondi; v += pas)
    TracerGraduation(cadre, {v, c.bas}, {v, c.droit - v}, v, {0, kSousLaBase}, Ancre::Milieu, occupation);
  for (double v = premiere(c.bas); v <= c.bas + etendue + kArrondi; v += pas)
    TracerGraduation(cadre, {c.droit - v, v}, {c.gauche, v}, v, {kHorsDUnCote, 0}, Ancre::Debut, occupation);
  const bool angleDroit = etat.reglages.forme == FormeTriangle::AngleDroit;
  for (double v = premiere(c.bas); angleDroit && v <= c.bas + etendue + kArrondi; v += pas)
    EcrireValeur(cadre, {c.gauche, v}, v, {-kHorsDUnCote, 0}, Ancre::Fin, occupation);
  const double troisieme = 100 - c.droit;
  for (double v = premiere(troisieme); !angleDroit && v <= troisieme + etendue + kArrondi; v += pas)
    TracerGraduation(cadre, {c.gauche, 100 - v - c.gauche}, {100 - v - c.bas, c.bas}, v, {-kHorsDUnCote, 0}, Ancre::Fin,
                     occupation);
  const std::array<Position, 3> sommets = cadre.Sommets();
  for (std::size_t i = 0; i < 3; ++i) {
    const Position de = sommets[i];
    const Position a = sommets[(i + 1) % 3];
    cadre.Page().Ligne(cadre.Projeter(de.x, de.y), cadre.Projeter(a.x, a.y), {.epaisseur = kTraitDeCote});
    occupation.PrendreTrait(cadre.SurPage(de.x, de.y), cadre.SurPage(a.x, a.y));
  }
}

void EcrireEntree(Cadre& cadre, const EtatTriangle& etat, std::size_t rang, Position place, const Police& police,
                  Position decalage, PageOccupee& occupation) {
  const EntreeTriangle& entree = etat.entrees[rang];
  if (entree.invisible || entree.texte.empty()) return;
  Dessin& page = cadre.Page();
  page.Designer(static_cast<std::int32_t>(rang));
  const Position deplace = Ajouter(decalage, entree.deplacement);
  page.Texte(place, entree.texte, police, deplace);
  occupation.Prendre(ZoneDuTexte(Ajouter(page.VersPage(place), deplace), entree.texte, police));
}

void EcrireTitreEtSommets(Cadre& cadre, const EtatTriangle& etat, PageOccupee& occupation) {
  Dessin& page = cadre.Page();
  page.Calquer("titres");
  EcrireEntree(cadre, etat, 0, page.VersUtilisateur({page.Largeur() / 2, kLigneDuTitre}),
               {.corps = kCorpsDuTitre, .gras = true, .ancre = Ancre::Milieu}, {}, occupation);
  const std::array<Position, 3> sommets = cadre.Sommets();
  const std::array<std::size_t, 3> axes = {etat.axes[2], etat.axes[0], etat.axes[1]};
  const std::array<Position, 3> decalages = {Position{0, kSousUnSommet}, Position{0, kSousUnSommet},
                                             Position{0, -kSurLeSommet}};
  for (std::size_t i = 0; i < 3; ++i)
    EcrireEntree(cadre, etat, 1 + axes[i], cadre.Projeter(sommets[i].x, sommets[i].y),
                 {.corps = kCorpsDesSommets, .gras = true, .ancre = Ancre::Milieu}, decalages[i], occupation);
}

// The text of a point's label.
std::string TexteDuPoint(const EtatTriangle& etat, const PointTriangle& point) {
  std::string texte = etat.reglages.intitulesLongs ? point.intitule : std::string(Rogner(point.nom));
  if (etat.reglages.troisieme) texte += Joindre({" (", Nombre(Arrondir(double{point.parts[etat.axes[2]]}, 1)), ")"});
  return texte;
}

void TracerMarque(Dessin& page, Position place, int marque) {
  if (marque == 0) {
    page.Texte(place, "*", {.corps = kCorpsDEtoile, .ancre = Ancre::Milieu, .niveau = Niveau::Centre},
               {0, kBaisseDEtoile});
    return;
  }
  page.Cercle(place, kPlusPetitRayon + kRayonParMarque * marque, {.couleur = Couleur::Bleu, .teinte = kTeinteDeMarque},
              {.couleur = Couleur::BleuFonce, .epaisseur = kTraitDeMarque});
}

void EcrireIntitule(Cadre& cadre, const EtatTriangle& etat, std::size_t rang, Position place, PageOccupee& occupation) {
  const EntreeTriangle& entree = etat.entrees[rang];
  const std::string texte = TexteDuPoint(etat, etat.trg.points[rang - kEntreeDuPremierPoint]);
  Police police{.corps = Corps(etat.reglages.taille),
                .gras = etat.reglages.gras,
                .halo = etat.trg.points.size() <= kPointsAHalo ? 1.0 : 0.0};
  const Position point = cadre.Page().VersPage(place);
  const PlaceDIntitule choisie = entree.deplacee ? PremierePlace() : ChoisirPlace(occupation, point, texte, police);
  police.ancre = choisie.ancre;
  police.niveau = choisie.niveau;
  const Position decalage = Ajouter({choisie.dx, choisie.dy}, entree.deplacement);
  if (std::hypot(decalage.x, decalage.y) > kIntituleEcarte)
    cadre.Page().Ligne(place, cadre.Page().VersUtilisateur(Ajouter(point, decalage)),
                       {.couleur = Couleur::Gris, .epaisseur = kTraitFin});
  cadre.Page().Texte(place, texte, police, decalage);
  occupation.Prendre(ZoneDuTexte(Ajouter(point, decalage), texte, police));
}

// Ranks of the entries of the points that are shown.
std::vector<std::size_t> EntreesMontrees(const EtatTriangle& etat) {
  std::vector<std::size_t> montrees;
  for (std::size_t i = 0; i < etat.trg.points.size(); ++i)
    if (!etat.entrees[i + kEntreeDuPremierPoint].invisible &&
        DansLesCotes(etat.cotes, CoordonneesDe(etat, etat.trg.points[i])))
      montrees.push_back(i + kEntreeDuPremierPoint);
  return montrees;
}

void TracerLiens(Cadre& cadre, const EtatTriangle& etat, const std::vector<std::size_t>& montrees) {
  const std::vector<std::optional<std::size_t>> liens = LiensDuTriangle(etat.trg);
  std::vector<char> visible(etat.trg.points.size(), 0);
  for (const std::size_t rang : montrees) visible[rang - kEntreeDuPremierPoint] = 1;
  for (std::size_t i = 0; i < liens.size(); ++i) {
    if (!liens[i] || visible[i] == 0 || visible[*liens[i]] == 0) continue;
    const Position de = CoordonneesDe(etat, etat.trg.points[*liens[i]]);
    const Position a = CoordonneesDe(etat, etat.trg.points[i]);
    cadre.Page().Ligne(cadre.Projeter(de.x, de.y), cadre.Projeter(a.x, a.y),
                       {.couleur = Couleur::Rouge, .epaisseur = kTraitDeLien});
  }
}

void TracerPoints(Cadre& cadre, const EtatTriangle& etat, PageOccupee& occupation) {
  Dessin& page = cadre.Page();
  page.Calquer("points");
  const std::vector<std::size_t> montrees = EntreesMontrees(etat);
  if (etat.reglages.traits) TracerLiens(cadre, etat, montrees);
  const auto place = [&](std::size_t rang) {
    const Position c = CoordonneesDe(etat, etat.trg.points[rang - kEntreeDuPremierPoint]);
    return cadre.Projeter(c.x, c.y);
  };
  for (const std::size_t rang : montrees) {
    page.Designer(static_cast<std::int32_t>(rang));
    TracerMarque(page, place(rang), etat.entrees[rang].marque);
    const Position p = page.VersPage(place(rang));
    occupation.Prendre({p.x - kDemiMarque, p.y - kDemiMarque, 2 * kDemiMarque, 2 * kDemiMarque});
  }
  page.Calquer("intitules");
  // Those that the user placed come first: the others keep clear of them.
  for (const bool deplacees : {true, false})
    for (const std::size_t rang : montrees)
      if (etat.entrees[rang].deplacee == deplacees) {
        page.Designer(static_cast<std::int32_t>(rang));
        EcrireIntitule(cadre, etat, rang, place(rang), occupation);
      }
  page.Designer(-1);
}

// Where the label of an entry stands; nothing when it is left out.
std::optional<Zone> ZoneDeLIntitule(const Dessin& dessin, std::size_t entree) {
  for (const FormeDessinee& forme : dessin.Formes())
    if (forme.genre == GenreForme::Texte && forme.id == static_cast<std::int32_t>(entree) && forme.texte != "*")
      return dessin.Etendue(forme);
  return std::nullopt;
}

void TracerCentre(Cadre& cadre, const EtatTriangle& etat) {
  constexpr double kTiers = 100.0 / 3;
  if (!etat.reglages.centre || !DansLesCotes(etat.cotes, {kTiers, kTiers})) return;
  cadre.Page().Calquer("centre");
  cadre.Page().Designer(-1);
  const Position centre = cadre.Projeter(kTiers, kTiers);
  cadre.Page().Texte(
      centre, "+",
      {.corps = kCorpsDuCentre, .couleur = Couleur::Vert, .ancre = Ancre::Milieu, .niveau = Niveau::Centre});
}

}  // namespace

Position EcartDeLaPlace(const EtatTriangle& etat, std::size_t entree) {
  EtatTriangle fixe = etat;
  fixe.entrees[entree].deplacee = true;
  const std::optional<Zone> vue = ZoneDeLIntitule(DessinerTriangle(etat), entree);
  const std::optional<Zone> premiere = ZoneDeLIntitule(DessinerTriangle(fixe), entree);
  if (!vue || !premiere) return {};
  return {vue->x - premiere->x, vue->y - premiere->y};
}

Dessin DessinerTriangle(const EtatTriangle& etat) {
  Cadre cadre(etat);
  PageOccupee occupation(cadre.Page().Largeur(), cadre.Page().Hauteur());
  TracerCotes(cadre, etat, occupation);
  EcrireTitreEtSommets(cadre, etat, occupation);
  TracerCentre(cadre, etat);
  TracerPoints(cadre, etat, occupation);
  return std::move(cadre.Page());
}

}  // namespace quelvar::tables
