// The marks of the elements of a plane, by click and by name.
#include <algorithm>

#include "core/chiffres/nombres.h"
#include "core/texte/caracteres.h"
#include "factor/plan/plan.h"

namespace quelvar::factor {

namespace {

bool ALeNom(const PointPlan& point, std::string_view nom) { return EgalSansCasse(Rogner(point.nom), Rogner(nom)); }

// Element of that name, of several the one of that rank from 1; nothing when there are not so many.
std::optional<std::size_t> ElementNomme(const std::vector<PointPlan>& points, std::string_view nom, std::size_t rang) {
  for (std::size_t i = 0; i < points.size(); ++i)
    if (ALeNom(points[i], nom) && --rang == 0) return i;
  return std::nullopt;
}

// The same of a name as it is typed, with the rank or without.
std::optional<std::size_t> ElementTape(const std::vector<PointPlan>& points, std::string_view tape) {
  const std::optional<std::size_t> premier = ElementNomme(points, tape, 1);
  const std::size_t deuxPoints = tape.rfind(':');
  if (premier || deuxPoints == std::string_view::npos) return premier;
  const std::string_view rang = Rogner(tape.substr(deuxPoints + 1));
  constexpr std::size_t kChiffresDUnRang = 9;
  if (!SontChiffres(rang) || rang.size() > kChiffresDUnRang || ValeurDe(rang) < 1) return std::nullopt;
  return ElementNomme(points, tape.substr(0, deuxPoints), static_cast<std::size_t>(ValeurDe(rang)));
}

}  // namespace

void BasculerMarque(EtatPlan& etat, std::size_t element) {
  std::uint8_t& code = etat.reglages.marques[element];
  code = code != 0 ? 0 : element < etat.donnees.colonnes ? kMarqueColonne : kMarqueLigne;
}

bool PorteUneMarque(const EtatPlan& etat, std::uint8_t code) {
  const std::vector<std::uint8_t>& marques = etat.reglages.marques;
  return std::find(marques.begin(), marques.end(), code) != marques.end();
}

std::optional<std::string> MarquerParNoms(EtatPlan& etat, const std::vector<std::string>& noms) {
  const std::vector<PointPlan>& points = etat.donnees.points;
  std::vector<std::uint8_t> marques(points.size(), 0);
  for (const std::string& nom : noms) {
    const std::optional<std::size_t> element = ElementTape(points, nom);
    if (!element) return nom;
    marques[*element] = *element < etat.donnees.colonnes ? kMarqueColonne : kMarqueLigne;
  }
  etat.reglages.marques = std::move(marques);
  return std::nullopt;
}

std::vector<std::string> NomsMarques(const EtatPlan& etat) {
  const std::vector<PointPlan>& points = etat.donnees.points;
  std::vector<std::string> noms;
  for (std::size_t i = 0; i < points.size(); ++i) {
    if (etat.reglages.marques[i] == 0) continue;
    const std::string_view nom = Rogner(points[i].nom);
    const auto avant = std::count_if(points.begin(), points.begin() + static_cast<std::ptrdiff_t>(i),
                                     [&](const PointPlan& point) { return ALeNom(point, nom); });
    noms.push_back(avant == 0 ? std::string(nom) : Joindre({nom, ":", Nombre(avant + 1)}));
  }
  return noms;
}

}  // namespace quelvar::factor
