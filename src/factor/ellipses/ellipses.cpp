#include "factor/ellipses/ellipses.h"

#include <cmath>
#include <numbers>
#include <utility>

#include "core/chiffres/nombres.h"
#include "factor/fichiers/coordonnees.h"

namespace quelvar::factor {

namespace {

constexpr double kArrondi = -1E-9;  // a second eigenvalue above that part of the first is negative by rounding only
constexpr int kCordes = 100;
constexpr double kDemiPas = 0.031415926535;  // half the angle of a chord: pi / 100, with ten digits

constexpr double kMoitieDesIndividus = 0.5;  // of a normal cloud, inside the median ellipse

struct TextesDuGenre {
  std::string_view titre;
  std::string_view legende;
};

TextesDuGenre TextesDe(GenreEllipse genre) {
  switch (genre) {
    case GenreEllipse::Concentration: return {"Ellipse de concentration", " de concentration "};
    case GenreEllipse::Mediane: return {"Ellipse médiane"_w, " médiane "_w};
    case GenreEllipse::Indicatrice: break;
  }
  return {"Ellipse indicatrice", " indicatrice "};
}

}  // namespace

double Kappa(GenreEllipse genre) {
  switch (genre) {
    case GenreEllipse::Concentration: return 2;
    case GenreEllipse::Mediane: return std::sqrt(-2 * std::log(1 - kMoitieDesIndividus));
    case GenreEllipse::Indicatrice: break;
  }
  return 1;
}

double PourcentageDIndividus(double kappa) { return 100 * (1 - std::exp(-kappa * kappa / 2)); }

bool ChoixEllipses::Voulue(GenreEllipse genre) const {
  return genre == GenreEllipse::Concentration ? concentration : genre == GenreEllipse::Mediane ? mediane : indicatrice;
}

std::string SuiteDuTitre(const ChoixEllipses& choix) {
  if (choix.Aucune()) return {};
  std::string suite = "  Ellipse(s) ";
  for (const GenreEllipse genre : kGenresEllipse)
    if (choix.Voulue(genre)) suite += TextesDe(genre).legende;
  return suite;
}

void Nuage::Ajouter(double x, double y) {
  ++effectif;
  sx += x;
  sxx += x * x;
  sy += y;
  syy += y * y;
  sxy += x * y;
  points.push_back({x, y});
}

Position Nuage::Centre() const {
  const auto n = static_cast<double>(effectif);
  return {sx / n, sy / n};
}

double PourcentageObserve(const Nuage& nuage, const AxesDInertie& axes, double kappa) {
  constexpr double kBord = 1 + 1E-9;
  const Position centre = nuage.Centre();
  const double cosinus = std::cos(axes.angle);
  const double sinus = std::sin(axes.angle);
  // Along an axis without extent every point is at the centre but for rounding.
  const auto part = [](double ecart, double lambda) { return lambda > 0 ? ecart * ecart / lambda : 0; };
  std::int64_t dedans = 0;
  for (const Position& point : nuage.points) {
    const double x = point.x - centre.x;
    const double y = point.y - centre.y;
    const double distance = part(x * cosinus + y * sinus, axes.lambda1) + part(y * cosinus - x * sinus, axes.lambda2);
    if (distance <= kappa * kappa * kBord) ++dedans;
  }
  return 100 * static_cast<double>(dedans) / static_cast<double>(nuage.effectif);
}

TableauEdite TableDesEllipses(const EllipsesDeModalite& modalite) {
  TableauEdite tableau;
  tableau.colonnes = {{"Kappa"}, {"Pourcentage d'individus"}, {Joindre({"Pourcentage observé"_w})}};
  for (std::size_t i = 0; i < modalite.genres.size(); ++i) {
    const double kappa = Kappa(modalite.genres[i]);
    const double attendu = PourcentageDIndividus(kappa);
    const double observe = modalite.observes[i];
    Rangee rangee{std::string(TextesDe(modalite.genres[i]).titre),
                  {},
                  {{kappa, Unite::Nombre, 2}, {attendu, Unite::Pourcent, 1, "%"}}};
    if (Arrondir(observe, 1) != Arrondir(attendu, 1)) rangee.cellules.push_back({observe, Unite::Pourcent, 1, "%"});
    tableau.rangees.push_back(std::move(rangee));
  }
  return tableau;
}

std::optional<AxesDInertie> AxesDuNuage(const Nuage& nuage) {
  const auto n = static_cast<double>(nuage.effectif);
  const double vx = nuage.sxx / n - (nuage.sx / n) * (nuage.sx / n);
  const double vy = nuage.syy / n - (nuage.sy / n) * (nuage.sy / n);
  const double c = nuage.sxy / n - (nuage.sx / n) * (nuage.sy / n);
  const double racine = std::sqrt((vy - vx) * (vy - vx) + 4 * c * c);
  AxesDInertie axes{(vx + vy + racine) / 2, (vx + vy - racine) / 2, 0};
  if (axes.lambda2 < 0 && axes.lambda2 > kArrondi * axes.lambda1) axes.lambda2 = 0;
  if (!(axes.lambda2 >= 0) || !std::isfinite(axes.lambda1)) return std::nullopt;
  // The direction arctan(c / (lambda1 - vy)), in a form that loses no digits when c is small.
  axes.angle = c != 0 ? std::atan2(2 * c, vx - vy) / 2 : vy > vx ? std::numbers::pi / 2 : 0;
  return axes;
}

std::vector<Position> ContourDEllipse(Position centre, const AxesDInertie& axes, double kappa) {
  const double a = kappa * std::sqrt(axes.lambda1);
  const double b = kappa * std::sqrt(axes.lambda2);
  const double cosinus = std::cos(axes.angle);
  const double sinus = std::sin(axes.angle);
  std::vector<Position> points;
  points.reserve(kCordes + 1);
  for (int k = 0; k <= kCordes; ++k) {
    const double t = 2 * k * kDemiPas;
    points.push_back({centre.x + kMilliemesParUnite * (a * std::cos(t) * cosinus - b * std::sin(t) * sinus),
                      centre.y + kMilliemesParUnite * (a * std::cos(t) * sinus + b * std::sin(t) * cosinus)});
  }
  return points;
}

void TracerEllipses(Dessin& dessin, std::span<const EllipsesDeModalite> modalites) {
  for (const EllipsesDeModalite& modalite : modalites)
    for (const GenreEllipse genre : modalite.genres)
      dessin.Ligne(ContourDEllipse(modalite.centre, modalite.axes, Kappa(genre)), {Couleur::BleuFonce});
}

void TracerCentres(Dessin& dessin, std::span<const EllipsesDeModalite> modalites, bool intitulesLongs, Police police) {
  constexpr double rayon = 2;         // of the mark, points
  constexpr Position decalage{4, 3};  // of the text from the mark, points
  police.couleur = Couleur::BleuFonce;
  for (const EllipsesDeModalite& modalite : modalites) {
    dessin.Cercle(modalite.centre, rayon, {Couleur::BleuFonce, 1}, {Couleur::BleuFonce});
    dessin.Texte(modalite.centre, Joindre({"PM", intitulesLongs ? modalite.intitule : modalite.nom}), police, decalage);
  }
}

}  // namespace quelvar::factor
