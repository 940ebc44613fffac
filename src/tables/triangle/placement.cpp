#include "tables/triangle/placement.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace quelvar::tables {

namespace {

// Where a label may stand beside its point, in the order of preference: right, left, above, below, then the corners;
// then on circles around the point, with a line to it.
constexpr PlaceDIntitule kPlaces[] = {
    {5, 0, Ancre::Debut, Niveau::Centre}, {-5, 0, Ancre::Fin, Niveau::Centre}, {0, -5, Ancre::Milieu, Niveau::Bas},
    {0, 5, Ancre::Milieu, Niveau::Haut},  {4, -4, Ancre::Debut, Niveau::Bas},  {4, 4, Ancre::Debut, Niveau::Haut},
    {-4, -4, Ancre::Fin, Niveau::Bas},    {-4, 4, Ancre::Fin, Niveau::Haut},
};
// Circles two lines of text apart; beyond the seventh the eye does not follow the line back to the point. Ten places on
// each: on the first one they are a line of text apart.
constexpr double kPasDeRayon = 16;
constexpr double kPremierRayon = kPasDeRayon;
constexpr double kDernierRayon = 7 * kPasDeRayon;
constexpr int kDirections = 10;

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
  Zone A(Position point, const PlaceDIntitule& place) const {
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
std::vector<PlaceDIntitule> PlacesEcartees() {
  std::vector<PlaceDIntitule> places;
  for (double rayon = kPremierRayon; rayon <= kDernierRayon; rayon += kPasDeRayon)
    for (int i = 0; i < kDirections; ++i) {
      const double angle = 2 * std::numbers::pi * (i + 0.5) / kDirections;
      places.push_back({rayon * std::cos(angle), rayon * std::sin(angle),
                        std::cos(angle) < 0 ? Ancre::Fin : Ancre::Debut, Niveau::Centre});
    }
  return places;
}

}  // namespace

PageOccupee::PageOccupee(double largeur, double hauteur)
    : largeur_(largeur),
      hauteur_(hauteur),
      colonnes_(static_cast<std::size_t>(std::ceil(largeur))),
      lignes_(static_cast<std::size_t>(std::ceil(hauteur))),
      mots_((colonnes_ + kBits - 1) / kBits),
      bits_(lignes_ * mots_) {}

// Goes through the words that a zone touches, with its bits in each, until the action gives something; whether it
// did.
template <typename Action>
bool PageOccupee::Parcourir(const Zone& zone, const Action& action) const {
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

bool PageOccupee::Libre(const Zone& zone) const {
  return SurLaPage(zone) && !Parcourir(zone, [this](std::size_t mot, std::uint64_t bits) { return bits_[mot] & bits; });
}

void PageOccupee::Prendre(const Zone& zone) {
  Parcourir(zone, [this](std::size_t mot, std::uint64_t bits) {
    bits_[mot] |= bits;
    return std::uint64_t{0};
  });
}

void PageOccupee::PrendreTrait(Position de, Position a) {
  const int pas = static_cast<int>(std::hypot(a.x - de.x, a.y - de.y)) + 1;
  for (int i = 0; i <= pas; ++i)
    Prendre({de.x + (a.x - de.x) * i / pas - 0.5, de.y + (a.y - de.y) * i / pas - 0.5, 1, 1});
}

PlaceDIntitule PremierePlace() { return kPlaces[0]; }

PlaceDIntitule ChoisirPlace(const PageOccupee& occupation, Position point, const std::string& texte,
                            const Police& police) {
  static const std::vector<PlaceDIntitule> ecartees = PlacesEcartees();
  const EtendueDuTexte etendue(texte, police);
  for (const PlaceDIntitule& place : kPlaces)
    if (occupation.Libre(etendue.A(point, place))) return place;
  for (const PlaceDIntitule& place : ecartees)
    if (occupation.Libre(etendue.A(point, place))) return place;
  for (const PlaceDIntitule& place : kPlaces)
    if (occupation.SurLaPage(etendue.A(point, place))) return place;
  return kPlaces[0];
}

}  // namespace quelvar::tables
