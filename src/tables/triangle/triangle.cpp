#include "tables/triangle/triangle.h"

#include <algorithm>
#include <unordered_map>

#include "core/enquete/colonnes.h"

namespace quelvar::tables {

namespace {

constexpr double kHauteurDuTriangle = 0.866025404;  // of an equilateral one with a side of 1

// What one press moves a side by, percent.
double PasDuCote(Coefficient coefficient) {
  switch (coefficient) {
    case Coefficient::Faible: return 1;
    case Coefficient::Fort: return 10;
    case Coefficient::Moyen: break;
  }
  return 5;
}

double Changer(double valeur, bool plus, Coefficient coefficient) {
  constexpr double kPasQuiDoublent = 40;  // steps of the text that make once more its size
  const double facteur = 1 + PasDeTexte(coefficient) / kPasQuiDoublent;
  return std::clamp(plus ? valeur * facteur : valeur / facteur, kPlusPetiteTaille, kPlusGrandeTaille);
}

}  // namespace

EtatTriangle NouveauTriangle(FichierTrg trg) {
  EtatTriangle etat;
  etat.entrees.push_back({trg.titre});
  for (const std::string& sommet : trg.sommets) etat.entrees.push_back({sommet});
  for (const PointTriangle& point : trg.points) etat.entrees.push_back({point.intitule});
  etat.trg = std::move(trg);
  return etat;
}

Position ProjeterTriangle(FormeTriangle forme, double a, double b) {
  if (forme == FormeTriangle::AngleDroit) return {a, b};
  return {a + b / 2, kHauteurDuTriangle * b};
}

Position CoordonneesDe(const EtatTriangle& etat, const PointTriangle& point) {
  return {double{point.parts[etat.axes[0]]}, double{point.parts[etat.axes[1]]}};
}

bool DansLesCotes(const CotesTriangle& cotes, Position coordonnees) {
  const CotesTriangle depart;
  return (cotes.gauche == depart.gauche || coordonnees.x >= cotes.gauche) &&
         (cotes.bas == depart.bas || coordonnees.y >= cotes.bas) &&
         (cotes.droit == depart.droit || coordonnees.x + coordonnees.y <= cotes.droit);
}

std::vector<std::optional<std::size_t>> LiensDuTriangle(const FichierTrg& trg) {
  std::vector<std::optional<std::size_t>> liens(trg.points.size());
  std::unordered_map<std::string, std::size_t> derniers;
  for (std::size_t i = 0; i < trg.points.size(); ++i) {
    const auto [place, nouveau] = derniers.try_emplace(trg.points[i].nom.substr(0, kLargeurDeQuestion), i);
    if (nouveau) continue;
    liens[i] = place->second;
    place->second = i;
  }
  return liens;
}

void DeplacerTexte(EtatTriangle& etat, SensTriangle sens) {
  const double pas = PasDeTexte(etat.coefficient);
  switch (sens) {
    case SensTriangle::Haut: return DeplacerTexte(etat, {0, -pas});
    case SensTriangle::Bas: return DeplacerTexte(etat, {0, pas});
    case SensTriangle::Gauche: return DeplacerTexte(etat, {-pas, 0});
    case SensTriangle::Droite: return DeplacerTexte(etat, {pas, 0});
  }
}

void DeplacerTexte(EtatTriangle& etat, Position deplacement) {
  EntreeTriangle& entree = etat.entrees.at(etat.choisie);
  // A label is moved from where it is seen.
  if (!entree.deplacee && etat.choisie >= kEntreeDuPremierPoint)
    entree.deplacement = EcartDeLaPlace(etat, etat.choisie);
  entree.deplacee = true;
  entree.deplacement = {entree.deplacement.x + deplacement.x, entree.deplacement.y + deplacement.y};
}

void ChangerTaille(EtatTriangle& etat, bool plus) {
  if (etat.dimension != DimensionTriangle::Hauteur) etat.largeur = Changer(etat.largeur, plus, etat.coefficient);
  if (etat.dimension != DimensionTriangle::Largeur) etat.hauteur = Changer(etat.hauteur, plus, etat.coefficient);
}

void ChangerFenetreTriangle(EtatTriangle& etat, bool plus) {
  etat.fenetre = Changer(etat.fenetre, plus, etat.coefficient);
}

void DeplacerCote(EtatTriangle& etat, CoteTriangle cote, bool dedans) {
  CotesTriangle& cotes = etat.cotes;
  const double pas = dedans ? PasDuCote(etat.coefficient) : -PasDuCote(etat.coefficient);
  const double reste = cotes.droit - cotes.gauche - cotes.bas - kHauteurMinimum;
  const double permis = std::min(pas, std::max(reste, 0.0));
  switch (cote) {
    case CoteTriangle::Gauche: cotes.gauche = std::max(cotes.gauche + permis, 0.0); break;
    case CoteTriangle::Bas: cotes.bas = std::max(cotes.bas + permis, 0.0); break;
    case CoteTriangle::Droit: cotes.droit = std::min(cotes.droit - permis, 100.0); break;
  }
}

void ReinitialiserTriangle(EtatTriangle& etat) {
  const std::size_t choisie = etat.choisie;
  const DimensionTriangle dimension = etat.dimension;
  etat = NouveauTriangle(std::move(etat.trg));
  etat.choisie = choisie;
  etat.dimension = dimension;
}

}  // namespace quelvar::tables
