#include "tables/triangle/trg.h"

#include <cmath>

#include "core/programme/report.h"
#include "core/texte/nombres.h"

namespace quelvar::tables {

namespace {

constexpr std::size_t kLargeurNom = 4;
constexpr std::size_t kLargeurPart = 5;
constexpr double kEcartDArrondi = 0.25;  // three roundings to one decimal

bool FinitLesPoints(std::string_view ligne) {
  return Rogner(ligne.substr(0, kLargeurNom)).empty() || ligne.find("**") != std::string_view::npos;
}

PointTriangle LirePoint(std::string_view ligne) {
  PointTriangle point;
  point.nom = CadreGauche(ligne, kLargeurNom);
  point.reste = Milieu(ligne, kLargeurNom + 1);
  std::size_t colonne = kLargeurNom + 1;
  for (float& part : point.parts) {
    part = Simple(ValeurDe(Milieu(ligne, colonne, kLargeurPart)));
    colonne += kLargeurPart;
  }
  point.intitule = Rogner(Milieu(ligne, colonne));
  if (point.intitule.empty()) point.intitule = Rogner(point.nom);
  return point;
}

bool FontCent(const PointTriangle& point) {
  const double somme = double{point.parts[0]} + double{point.parts[1]} + double{point.parts[2]};
  return somme == 0 || std::fabs(somme - 100) <= kEcartDArrondi;
}

}  // namespace

FichierTrg LireTrg(const Chemin& chemin) {
  FichierTrg trg;
  LecteurLignes lecteur(chemin);
  trg.titre = lecteur.LireObligatoire();
  for (std::string& sommet : trg.sommets) sommet = lecteur.LireObligatoire();
  for (std::string_view ligne; lecteur.Lire(ligne) && !FinitLesPoints(ligne);) {
    trg.points.push_back(LirePoint(ligne));
    if (!FontCent(trg.points.back())) ++trg.inegaux;
  }
  return trg;
}

}  // namespace quelvar::tables
