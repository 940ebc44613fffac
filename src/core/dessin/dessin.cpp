#include "core/dessin/dessin.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/texte/texte.h"

namespace quelvar {

namespace {

// In the order of Couleur.
constexpr std::array<Rvb, 10> kTons = {{{0, 0, 0},
                                        {20, 40, 110},
                                        {140, 20, 30},
                                        {190, 190, 190},
                                        {120, 120, 120},
                                        {31, 90, 180},
                                        {30, 140, 70},
                                        {200, 40, 45},
                                        {170, 50, 150},
                                        {255, 255, 255}}};

// Widths of Helvetica in thousandths of the size, characters 32 to 126.
constexpr std::array<std::uint16_t, 95> kLargeurs = {
    278, 278, 355, 556, 556, 889, 667, 191, 333, 333, 389, 584, 278, 333,  278, 278, 556, 556, 556,
    556, 556, 556, 556, 556, 556, 556, 278, 278, 584, 584, 584, 556, 1015, 667, 667, 722, 722, 667,
    611, 778, 722, 278, 500, 667, 556, 833, 722, 778, 667, 778, 722, 667,  611, 722, 667, 944, 667,
    667, 611, 278, 278, 278, 469, 556, 333, 556, 556, 500, 556, 556, 278,  556, 556, 222, 222, 500,
    222, 833, 556, 556, 556, 556, 333, 500, 278, 556, 500, 722, 500, 500,  500, 334, 260, 334, 584};
constexpr double kLargeurGras = 1.07;  // a bold text over a plain one, on average

// Heights of a line of text over its size.
constexpr double kMontee = 0.73;    // capitals and ascenders
constexpr double kDescente = 0.21;  // descenders

constexpr unsigned kPremierMesure = ' ';

// The character whose width another one takes: the letter under an accent, the nearest letter of a ligature or of a
// foreign sound, a digit for any other one that the table of widths has not.
unsigned char MesureDe(char signe) {
  const auto c = static_cast<unsigned char>(SansAccent(signe));
  if (c < kPremierMesure + kLargeurs.size()) return c;
  static constexpr std::string_view kAutres = "ÆÐØÞßæðøþ"_w;
  static constexpr std::string_view kProches = "MDOPsmdop";
  const std::size_t rang = kAutres.find(signe);
  return static_cast<unsigned char>(rang == std::string_view::npos ? '0' : kProches[rang]);
}

double DistanceAuSegment(Position p, Position a, Position b) {
  const double dx = b.x - a.x;
  const double dy = b.y - a.y;
  const double carre = dx * dx + dy * dy;
  const double t = carre > 0 ? std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / carre, 0.0, 1.0) : 0;
  return std::hypot(p.x - (a.x + t * dx), p.y - (a.y + t * dy));
}

Zone Elargie(const Zone& zone, double marge) {
  return {zone.x - marge, zone.y - marge, zone.largeur + 2 * marge, zone.hauteur + 2 * marge};
}

}  // namespace

Rvb RvbDe(Couleur couleur, double teinte) {
  const Rvb& ton = kTons[static_cast<std::size_t>(couleur)];
  constexpr double kBlanc = 255;
  const auto meler = [&](std::uint8_t c) {
    return static_cast<std::uint8_t>(std::lround(kBlanc + teinte * (c - kBlanc)));
  };
  return {meler(ton.rouge), meler(ton.vert), meler(ton.bleu)};
}

Dessin::Dessin(double largeur, double hauteur, const Fenetre& fenetre, const Zone& zone)
    : largeur_(largeur), hauteur_(hauteur), fenetre_(fenetre), zone_(zone) {}

Dessin::Dessin(double largeur, double hauteur)
    : Dessin(largeur, hauteur, {0, largeur, 0, hauteur}, {0, 0, largeur, hauteur}) {}

Position Dessin::VersPage(Position p) const {
  return {zone_.x + (p.x - fenetre_.gauche) / (fenetre_.droite - fenetre_.gauche) * zone_.largeur,
          zone_.y + (p.y - fenetre_.haut) / (fenetre_.bas - fenetre_.haut) * zone_.hauteur};
}

Position Dessin::VersUtilisateur(Position p) const {
  return {fenetre_.gauche + (p.x - zone_.x) / zone_.largeur * (fenetre_.droite - fenetre_.gauche),
          fenetre_.haut + (p.y - zone_.y) / zone_.hauteur * (fenetre_.bas - fenetre_.haut)};
}

void Dessin::Calquer(std::string_view nom) {
  const auto calque = std::find_if(calques_.begin(), calques_.end(), [&](const Calque& c) { return c.nom == nom; });
  calque_ = static_cast<std::uint16_t>(calque - calques_.begin());
  if (calque == calques_.end()) calques_.push_back({std::string(nom), {}});
}

FormeDessinee& Dessin::Ajouter(GenreForme genre, std::span<const Position> points) {
  FormeDessinee& forme = formes_.emplace_back();
  forme.genre = genre;
  forme.premier = static_cast<std::uint32_t>(points_.size());
  forme.nombre = static_cast<std::uint32_t>(points.size());
  forme.calque = calque_;
  forme.id = id_;
  points_.insert(points_.end(), points.begin(), points.end());
  return forme;
}

FormeDessinee& Dessin::Ligne(Position a, Position b, const Plume& plume) { return Ligne(std::array{a, b}, plume); }

FormeDessinee& Dessin::Ligne(std::span<const Position> points, const Plume& plume) {
  FormeDessinee& forme = Ajouter(GenreForme::Ligne, points);
  forme.plume = plume;
  return forme;
}

FormeDessinee& Dessin::Polygone(std::span<const Position> points, const Fond& fond, const Plume& plume) {
  FormeDessinee& forme = Ajouter(GenreForme::Polygone, points);
  forme.fond = fond;
  forme.plume = plume;
  return forme;
}

FormeDessinee& Dessin::Rectangle(Position coin, Position oppose, const Fond& fond, const Plume& plume) {
  return Polygone(std::array{coin, Position{oppose.x, coin.y}, oppose, Position{coin.x, oppose.y}}, fond, plume);
}

FormeDessinee& Dessin::Cercle(Position centre, double rayon, const Fond& fond, const Plume& plume) {
  FormeDessinee& forme = Ajouter(GenreForme::Cercle, std::array{centre});
  forme.rayon = rayon;
  forme.fond = fond;
  forme.plume = plume;
  return forme;
}

FormeDessinee& Dessin::Texte(Position place, std::string_view texte, const Police& police, Position decalage) {
  FormeDessinee& forme = Ajouter(GenreForme::Texte, std::array{place});
  forme.texte = texte;
  forme.police = police;
  forme.decalage = decalage;
  return forme;
}

Position Dessin::SurPage(const FormeDessinee& forme, std::size_t rang) const {
  const Position page = VersPage(points_[forme.premier + rang]);
  return {page.x + forme.decalage.x, page.y + forme.decalage.y};
}

Zone Dessin::Etendue(const FormeDessinee& forme) const {
  if (forme.nombre == 0) return {};
  const Position premier = SurPage(forme);
  if (forme.genre == GenreForme::Texte) return ZoneDuTexte(premier, forme.texte, forme.police);
  Zone zone{premier.x, premier.y, 0, 0};
  for (std::size_t rang = 1; rang < forme.nombre; ++rang) {
    const Position p = SurPage(forme, rang);
    const double droite = std::max(zone.x + zone.largeur, p.x);
    const double bas = std::max(zone.y + zone.hauteur, p.y);
    zone.x = std::min(zone.x, p.x);
    zone.y = std::min(zone.y, p.y);
    zone.largeur = droite - zone.x;
    zone.hauteur = bas - zone.y;
  }
  return forme.genre == GenreForme::Cercle ? Elargie(zone, forme.rayon) : zone;
}

std::optional<std::int32_t> Dessin::ElementSous(Position page, double tolerance) const {
  for (auto forme = formes_.rbegin(); forme != formes_.rend(); ++forme) {
    if (forme->id < 0 || !Elargie(Etendue(*forme), tolerance).Contient(page)) continue;
    if (Coupe(*forme) && !Coupe(*forme)->Contient(page)) continue;
    if (forme->genre != GenreForme::Ligne) return forme->id;
    for (std::size_t rang = 1; rang < forme->nombre; ++rang)
      if (DistanceAuSegment(page, SurPage(*forme, rang - 1), SurPage(*forme, rang)) <= tolerance) return forme->id;
  }
  return std::nullopt;
}

double LargeurTexte(std::string_view texte, double corps, bool gras) {
  unsigned milliemes = 0;
  for (const char signe : texte) {
    const unsigned char mesure = MesureDe(signe);
    milliemes += mesure < kPremierMesure ? 0U : kLargeurs[mesure - kPremierMesure];
  }
  return milliemes * corps / 1000 * (gras ? kLargeurGras : 1);
}

double DescenteDeLaBase(const Police& police) {
  switch (police.niveau) {
    case Niveau::Haut: return kMontee * police.corps;
    case Niveau::Centre: return kMontee / 2 * police.corps;
    case Niveau::Bas: return -kDescente * police.corps;
    case Niveau::Base: break;
  }
  return 0;
}

Zone ZoneDuTexte(Position place, std::string_view texte, const Police& police) {
  const double largeur = LargeurTexte(texte, police.corps, police.gras);
  const double retrait = police.ancre == Ancre::Debut ? 0 : police.ancre == Ancre::Milieu ? largeur / 2 : largeur;
  const double base = place.y + DescenteDeLaBase(police);
  return {place.x - retrait, base - kMontee * police.corps, largeur, (kMontee + kDescente) * police.corps};
}

}  // namespace quelvar
