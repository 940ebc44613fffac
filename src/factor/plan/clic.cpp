// What a click on the picture of the plane meets, and what it tells.
#include <algorithm>
#include <cmath>

#include "factor/plan/graphe.h"

namespace quelvar::factor {

namespace {

constexpr double kTolerance = 10;  // units of the window: half a side of the small box around a point

std::string Concordance(const Contexte& contexte, std::size_t individu) {
  if (const std::optional<Chemin> donnees = contexte.Chercher(".DAT")) {
    LecteurLignes lecteur(*donnees);
    std::size_t rang = 0;
    for (std::string_view ligne; lecteur.Lire(ligne);) {
      if (rang++ != individu) continue;
      const std::size_t debut = ligne.find("$$");
      if (debut != std::string_view::npos) return std::string(ligne.substr(debut + 2));
      break;
    }
  }
  return "Pas de concordance disponible";
}

}  // namespace

std::vector<std::size_t> ElementsSous(const EtatPlan& etat, const Dessin& dessin, Position page) {
  const Position place = dessin.VersUtilisateur(page);
  const Fenetre& f = etat.cadre.limites;
  const double x = kTolerance * (f.droite - f.gauche) / kUnitesDeFenetre;
  const double y = kTolerance * (f.haut - f.bas) / kUnitesDeFenetre;
  std::vector<std::pair<double, std::size_t>> trouves;
  std::int32_t dernier = -1;
  for (const FormeDessinee& forme : dessin.Formes()) {
    if (forme.id < 0 || forme.id == dernier) continue;
    dernier = forme.id;
    const auto element = static_cast<std::size_t>(forme.id);
    const Position p = PlaceDe(etat, element);
    if (std::fabs(p.x - place.x) <= x && std::fabs(p.y - place.y) <= y)
      trouves.emplace_back(std::hypot((p.x - place.x) / x, (p.y - place.y) / y), element);
  }
  std::sort(trouves.begin(), trouves.end());
  std::vector<std::size_t> elements;
  for (const auto& [distance, element] : trouves) elements.push_back(element);
  return elements;
}

std::string TexteDuClic(const Contexte& contexte, const EtatPlan& etat, std::size_t element) {
  const DonneesPlan& donnees = etat.donnees;
  const PointPlan& point = donnees.points[element];
  std::string texte(Rogner(point.intitule.empty() ? point.nom : point.intitule));
  if (element >= donnees.colonnes && donnees.Individus())
    texte += Joindre({"\r\n", Concordance(contexte, element - donnees.colonnes)});
  return texte;
}

}  // namespace quelvar::factor
