#include "tables/triangle/trg.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "core/chiffres/nombres.h"
#include "core/programme/rapport.h"

namespace quelvar::tables {

namespace {

constexpr double kEcartDArrondi = 0.25;  // three roundings to one decimal

bool FinitLesPoints(std::string_view ligne) {
  return Rogner(ligne.substr(0, kLargeurNomTrg)).empty() || ligne.find("**") != std::string_view::npos;
}

void Noter(PointsEnFaute& points, const std::string& lieu) {
  if (points.nombre++ == 0) points.premier = lieu;
}

PointTriangle LirePoint(std::string_view ligne, std::size_t rang, FichierTrg& trg) {
  PointTriangle point;
  point.nom = CadreGauche(ligne, kLargeurNomTrg);
  point.reste = Milieu(ligne, kLargeurNomTrg + 1);
  std::size_t colonne = kLargeurNomTrg + 1;
  bool lisible = true;
  for (float& part : point.parts) {
    const std::string_view valeur = Milieu(ligne, colonne, kLargeurPartTrg);
    part = Simple(ValeurDe(valeur));
    if (lisible && !EstNombre(valeur)) {
      lisible = false;
      Noter(trg.illisibles, Joindre({"ligne ", Nombre(rang), ", colonne ", Nombre(colonne), ", ", Rogner(point.nom),
                                     " (", Rogner(valeur).empty() ? "absent" : Rogner(valeur), ")"}));
    }
    colonne += kLargeurPartTrg;
  }
  point.intitule = Rogner(Milieu(ligne, colonne));
  if (point.intitule.empty()) point.intitule = Rogner(point.nom);
  if (const float* part = std::min_element(point.parts.begin(), point.parts.end()); *part < 0)
    Noter(trg.negatifs, Joindre({"ligne ", Nombre(rang), ", ", Rogner(point.nom), " (", Nombre(*part), ")"}));
  const double somme = double{point.parts[0]} + double{point.parts[1]} + double{point.parts[2]};
  if (somme != 0 && std::fabs(somme - 100) > kEcartDArrondi)
    Noter(trg.inegaux, Joindre({"ligne ", Nombre(rang), ", ", Rogner(point.nom), " (", Nombre(Simple(somme)), ")"}));
  return point;
}

}  // namespace

FichierTrg LireTrg(const Chemin& chemin) {
  LecteurLignes lecteur(chemin);
  TeteTrg tete = LireTeteTrg(lecteur);
  FichierTrg trg{std::move(tete.titre), std::move(tete.sommets)};
  std::size_t rang = kLignesDeTeteTrg;
  for (std::string_view ligne; lecteur.Lire(ligne) && !FinitLesPoints(ligne);)
    trg.points.push_back(LirePoint(ligne, ++rang, trg));
  return trg;
}

}  // namespace quelvar::tables
