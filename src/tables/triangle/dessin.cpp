// Draws the triangular graph: sides, graduations, vertices, points, and labels that keep clear of each other.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>

#include "core/texte/nombres.h"
#include "tables/triangle/triangle.h"

namespace quelvar::tables {

namespace {

// Points of the page at the start.
constexpr double kLargeur = 640;
constexpr double kHauteur = 560;
constexpr double kMarge = 64;
constexpr double kHaut = 44;  // room of the title
constexpr double kCorpsDuTitre = 12;
constexpr double kCorpsDesSommets = 10;
constexpr double kCorpsDesGraduations = 6.5;

// Where a label may stand beside its point, in the order of preference: right, left, above, below, then the corners;
// then on circles around the point, with a line to it.
struct Place {
  double dx, dy;
  Ancre ancre;
  Niveau niveau;
};
constexpr Place kPlaces[] = {
    {5, 0, Ancre::Debut, Niveau::Centre}, {-5, 0, Ancre::Fin, Niveau::Centre}, {0, -5, Ancre::Milieu, Niveau::Bas},
    {0, 5, Ancre::Milieu, Niveau::Haut},  {4, -4, Ancre::Debut, Niveau::Bas},  {4, 4, Ancre::Debut, Niveau::Haut},
    {-4, -4, Ancre::Fin, Niveau::Bas},    {-4, 4, Ancre::Fin, Niveau::Haut},
};
// White around the letters: it costs a screen more than all the rest, and among thousands it hides the points.
constexpr std::size_t kPointsAHalo = 150;
constexpr double kPremierRayon = 16;
constexpr double kDernierRayon = 112;
constexpr double kPasDeRayon = 16;
constexpr int kDirections = 10;

// What is taken of a page, point by point: a bit for each square of one point, rows of words.
class Occupation {
 public:
  Occupation(double largeur, double hauteur)
      : largeur_(largeur),
        hauteur_(hauteur),
        colonnes_(static_cast<std::size_t>(std::ceil(largeur))),
        lignes_(static_cast<std::size_t>(std::ceil(hauteur))),
        mots_((colonnes_ + kBits - 1) / kBits),
        bits_(lignes_ * mots_) {}

  bool SurLaPage(const Zone& zone) const {
    return zone.x >= 0 && zone.y >= 0 && zone.x + zone.largeur <= largeur_ && zone.y + zone.hauteur <= hauteur_;
  }
  // Whether every square that the zone touches is free; false for one that leaves the page.
  bool Libre(const Zone& zone) const {
    return SurLaPage(zone) &&
           !Parcourir(zone, [this](std::size_t mot, std::uint64_t bits) { return bits_[mot] & bits; });
  }
  void Prendre(const Zone& zone) {
    Parcourir(zone, [this](std::size_t mot, std::uint64_t bits) {
      bits_[mot] |= bits;
      return std::uint64_t{0};
    });
  }

 private:
  static constexpr std::size_t kBits = 64;

  // Goes through the words that a zone touches, with its bits in each, until the action gives something; whether it
  // did.
  template <typename Action>
  bool Parcourir(const Zone& zone, const Action& action) const {
    const auto borner = [](double place, std::size_t nombre) {
      return static_cast<std::size_t>(std::clamp(place, 0.0, static_cast<double>(nombre)));
    };
    const std::size_t gauche = borner(std::floor(zone.x), colonnes_);
    const std::size_t droite = borner(std::ceil(zone.x + zone.largeur), colonnes_);
    const std::size_t haut = borner(std::floor(zone.y), lignes_);
    const std::size_t bas = borner(std::ceil(zone.y + zone.hauteur), lignes_);
    for (std::size_t debut = gauche; debut < droite; debut = (debut / kBits + 1) * kBits) {
      const std::size_t nombre = std::min(droite, (debut / kBits + 1) * kBits) - debut;
      const std::uint64_t bits = (~std::uint64_t{0} >> (kBits - nombre)) << (debut % kBits);
      for (std::size_t ligne = haut; ligne < bas; ++ligne)
        if (action(ligne * mots_ + debut / kBits, bits) != 0) return true;
    }
    return false;
  }

  double largeur_;
  double hauteur_;
  std::size_t colonnes_;
  std::size_t lignes_;
  std::size_t mots_;
  std::vector<std::uint64_t> bits_;
};

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
    Fenetre vue{1e9, -1e9, -1e9, 1e9};
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
    case TailleTriangle::Petite: return 6.5;
    case TailleTriangle::Grande: return 10.5;
    case TailleTriangle::Moyenne: break;
  }
  return 8;
}

double PasDeGraduation(double etendue) { return etendue > 45 ? 10 : etendue > 18 ? 5 : etendue > 8 ? 2 : 1; }

Position Ajouter(Position a, Position b) { return {a.x + b.x, a.y + b.y}; }

void EcrireValeur(Cadre& cadre, Position a, double valeur, Position decalage, Ancre ancre, Occupation& occupation) {
  const Police police{
      .corps = kCorpsDesGraduations, .couleur = Couleur::Gris, .ancre = ancre, .niveau = Niveau::Centre};
  const std::string texte = Nombre(Arrondir(valeur, 1));
  cadre.Page().Texte(cadre.Projeter(a.x, a.y), texte, police, decalage);
  occupation.Prendre(ZoneDuTexte(Ajouter(cadre.SurPage(a.x, a.y), decalage), texte, police));
}

void TracerGraduation(Cadre& cadre, Position a, Position b, double valeur, Position decalage, Ancre ancre,
                      Occupation& occupation) {
  cadre.Page().Ligne(cadre.Projeter(a.x, a.y), cadre.Projeter(b.x, b.y),
                     {.couleur = Couleur::GrisClair, .epaisseur = 0.3, .style = StyleTrait::Pointilles});
  EcrireValeur(cadre, a, valeur, decalage, ancre, occupation);
}

// A side, point by point: no label is to lie across it.
void PrendreTrait(Position de, Position a, Occupation& occupation) {
  const int pas = static_cast<int>(std::hypot(a.x - de.x, a.y - de.y)) + 1;
  for (int i = 0; i <= pas; ++i)
    occupation.Prendre({de.x + (a.x - de.x) * i / pas - 0.5, de.y + (a.y - de.y) * i / pas - 0.5, 1, 1});
}

constexpr double kArrondi = 1e-9;  // of a value, in percent or in steps

// The sides, and along each the values of one percentage from its lower to its upper limit. Of a right angle both
// upright sides bear the ordinate, on the same lines.
void TracerCotes(Cadre& cadre, const EtatTriangle& etat, Occupation& occupation) {
  const CotesTriangle& c = etat.cotes;
  const double etendue = c.droit - c.gauche - c.bas;
  const double pas = PasDeGraduation(etendue);
  const auto premiere = [pas](double limite) { return std::ceil(limite / pas - kArrondi) * pas; };
  cadre.Page().Calquer("cotes");
  for (double v = premiere(c.gauche); v <= c.gauche + etendue + kArrondi; v += pas)
    TracerGraduation(cadre, {v, c.bas}, {v, c.droit - v}, v, {0, 9}, Ancre::Milieu, occupation);
  for (double v = premiere(c.bas); v <= c.bas + etendue + kArrondi; v += pas)
    TracerGraduation(cadre, {c.droit - v, v}, {c.gauche, v}, v, {5, 0}, Ancre::Debut, occupation);
  const bool angleDroit = etat.reglages.forme == FormeTriangle::AngleDroit;
  for (double v = premiere(c.bas); angleDroit && v <= c.bas + etendue + kArrondi; v += pas)
    EcrireValeur(cadre, {c.gauche, v}, v, {-5, 0}, Ancre::Fin, occupation);
  const double troisieme = 100 - c.droit;
  for (double v = premiere(troisieme); !angleDroit && v <= troisieme + etendue + kArrondi; v += pas)
    TracerGraduation(cadre, {c.gauche, 100 - v - c.gauche}, {100 - v - c.bas, c.bas}, v, {-5, 0}, Ancre::Fin,
                     occupation);
  const std::array<Position, 3> sommets = cadre.Sommets();
  for (std::size_t i = 0; i < 3; ++i) {
    const Position de = sommets[i];
    const Position a = sommets[(i + 1) % 3];
    cadre.Page().Ligne(cadre.Projeter(de.x, de.y), cadre.Projeter(a.x, a.y), {.epaisseur = 1});
    PrendreTrait(cadre.SurPage(de.x, de.y), cadre.SurPage(a.x, a.y), occupation);
  }
}

void EcrireEntree(Cadre& cadre, const EtatTriangle& etat, std::size_t rang, Position place, const Police& police,
                  Position decalage, Occupation& occupation) {
  const EntreeTriangle& entree = etat.entrees[rang];
  if (entree.invisible || entree.texte.empty()) return;
  Dessin& page = cadre.Page();
  page.Designer(static_cast<std::int32_t>(rang));
  const Position deplace = Ajouter(decalage, entree.deplacement);
  page.Texte(place, entree.texte, police, deplace);
  occupation.Prendre(ZoneDuTexte(Ajouter(page.VersPage(place), deplace), entree.texte, police));
}

void EcrireTitreEtSommets(Cadre& cadre, const EtatTriangle& etat, Occupation& occupation) {
  Dessin& page = cadre.Page();
  page.Calquer("titres");
  EcrireEntree(cadre, etat, 0, page.VersUtilisateur({page.Largeur() / 2, 26}),
               {.corps = kCorpsDuTitre, .gras = true, .ancre = Ancre::Milieu}, {}, occupation);
  const std::array<Position, 3> sommets = cadre.Sommets();
  const std::array<std::size_t, 3> axes = {etat.axes[2], etat.axes[0], etat.axes[1]};
  const std::array<Position, 3> decalages = {Position{0, 26}, Position{0, 26}, Position{0, -14}};
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
    page.Texte(place, "*", {.corps = 9, .ancre = Ancre::Milieu, .niveau = Niveau::Centre}, {0, 2});
    return;
  }
  page.Cercle(place, 0.8 + 0.7 * marque, {.couleur = Couleur::Bleu, .teinte = 0.7},
              {.couleur = Couleur::BleuFonce, .epaisseur = 0.5});
}

// The rectangles of a text around its place, by the side that stands there; its width is measured once.
class EtendueDuTexte {
 public:
  EtendueDuTexte(const std::string& texte, const Police& police) {
    Police essai = police;
    essai.ancre = Ancre::Debut;
    for (const Niveau niveau : {Niveau::Centre, Niveau::Haut, Niveau::Bas}) {
      essai.niveau = niveau;
      zones_[Rang(niveau)] = ZoneDuTexte({}, texte, essai);
    }
  }
  Zone A(Position point, const Place& place) const {
    Zone zone = zones_[Rang(place.niveau)];
    const double recul = place.ancre == Ancre::Debut    ? 0
                         : place.ancre == Ancre::Milieu ? zone.largeur / 2
                                                        : zone.largeur;
    zone.x += point.x + place.dx - recul;
    zone.y += point.y + place.dy;
    return zone;
  }

 private:
  static std::size_t Rang(Niveau niveau) { return niveau == Niveau::Centre ? 0 : niveau == Niveau::Haut ? 1 : 2; }
  std::array<Zone, 3> zones_;
};

// The places on circles around a point, the nearest first.
std::vector<Place> PlacesEcartees() {
  std::vector<Place> places;
  for (double rayon = kPremierRayon; rayon <= kDernierRayon; rayon += kPasDeRayon)
    for (int i = 0; i < kDirections; ++i) {
      const double angle = 2 * std::numbers::pi * (i + 0.5) / kDirections;
      places.push_back({rayon * std::cos(angle), rayon * std::sin(angle),
                        std::cos(angle) < 0 ? Ancre::Fin : Ancre::Debut, Niveau::Centre});
    }
  return places;
}

// Where the label of a point goes: the first free place around it; when none is, the first beside it on the page.
Place ChoisirPlace(const Occupation& occupation, Position point, const std::string& texte, const Police& police) {
  static const std::vector<Place> ecartees = PlacesEcartees();
  const EtendueDuTexte etendue(texte, police);
  for (const Place& place : kPlaces)
    if (occupation.Libre(etendue.A(point, place))) return place;
  for (const Place& place : ecartees)
    if (occupation.Libre(etendue.A(point, place))) return place;
  for (const Place& place : kPlaces)
    if (occupation.SurLaPage(etendue.A(point, place))) return place;
  return kPlaces[0];
}

void EcrireIntitule(Cadre& cadre, const EtatTriangle& etat, std::size_t rang, Position place, Occupation& occupation) {
  const EntreeTriangle& entree = etat.entrees[rang];
  const std::string texte = TexteDuPoint(etat, etat.trg.points[rang - kEntreeDuPremierPoint]);
  Police police{.corps = Corps(etat.reglages.taille),
                .gras = etat.reglages.gras,
                .halo = etat.trg.points.size() <= kPointsAHalo ? 1.0 : 0.0};
  const Position point = cadre.Page().VersPage(place);
  const Place choisie = entree.deplacee ? kPlaces[0] : ChoisirPlace(occupation, point, texte, police);
  police.ancre = choisie.ancre;
  police.niveau = choisie.niveau;
  const Position decalage = Ajouter({choisie.dx, choisie.dy}, entree.deplacement);
  if (std::hypot(decalage.x, decalage.y) > 12)
    cadre.Page().Ligne(place, cadre.Page().VersUtilisateur(Ajouter(point, decalage)),
                       {.couleur = Couleur::Gris, .epaisseur = 0.3});
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
                       {.couleur = Couleur::Rouge, .epaisseur = 0.6});
  }
}

void TracerPoints(Cadre& cadre, const EtatTriangle& etat, Occupation& occupation) {
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
    occupation.Prendre({p.x - 2, p.y - 2, 4, 4});
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
  for (const Forme& forme : dessin.Formes())
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
  cadre.Page().Texte(centre, "+",
                     {.corps = 14, .couleur = Couleur::Vert, .ancre = Ancre::Milieu, .niveau = Niveau::Centre});
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
  Occupation occupation(cadre.Page().Largeur(), cadre.Page().Hauteur());
  TracerCotes(cadre, etat, occupation);
  EcrireTitreEtSommets(cadre, etat, occupation);
  TracerCentre(cadre, etat);
  TracerPoints(cadre, etat, occupation);
  return std::move(cadre.Page());
}

}  // namespace quelvar::tables
