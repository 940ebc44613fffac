// The triangular graph as the form Graphe holds it: points in the plane of two percentages, the three sides, and what
// the controls do to the drawing.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "core/dessin/coefficient.h"
#include "core/dessin/dessin.h"
#include "tables/triangle/trg.h"

namespace quelvar::tables {

enum class FormeTriangle { Triangulaire, AngleDroit };
enum class SensTriangle { Haut, Bas, Gauche, Droite };
enum class DimensionTriangle { Largeur, Hauteur, Ensemble };
enum class CoteTriangle { Gauche, Droit, Bas };
enum class TailleTriangle { Petite, Moyenne, Grande };

// The marks of a point: 0 for "*", else a circle.
inline constexpr int kDerniereMarque = 5;

// A text of the list: the title, the three vertices, then the points.
struct EntreeTriangle {
  std::string texte{};
  Position deplacement{};  // points of the page, from where the drawing would put it
  bool deplacee = false;   // by the user: it keeps its place beside its point whatever the others do
  int marque = 2;          // of a point, up to kDerniereMarque
  bool invisible = false;
};
inline constexpr std::size_t kEntreeDuPremierPoint = 4;

// Reglages that go to the drawing as they are.
struct ReglagesTriangle {
  FormeTriangle forme = FormeTriangle::Triangulaire;
  bool intitulesLongs = false;
  bool centre = false;     // the point of equal thirds
  bool troisieme = false;  // the third coordinate beside each point
  bool traits = false;     // between modalities whose names begin with the same three characters
  TailleTriangle taille = TailleTriangle::Moyenne;
  bool gras = false;

  bool operator==(const ReglagesTriangle&) const = default;
};

// The sides, in percent: first coordinate at the left side, second at the lower side, their sum at the right side.
struct CotesTriangle {
  double gauche = 0;
  double bas = 0;
  double droit = 100;

  bool operator==(const CotesTriangle&) const = default;
};

// How much larger or smaller than at the start the drawing and its window may be.
inline constexpr double kPlusPetiteTaille = 0.2;
inline constexpr double kPlusGrandeTaille = 10;

// What the sides leave of the triangle at least, percent.
inline constexpr double kHauteurMinimum = 1;

struct EtatTriangle {
  FichierTrg trg;
  std::vector<EntreeTriangle> entrees;
  std::size_t choisie = 0;
  std::array<std::size_t, 3> axes = {0, 1, 2};  // percentage used as first, second and third axis
  ReglagesTriangle reglages;
  CotesTriangle cotes;
  Coefficient coefficient = Coefficient::Moyen;
  DimensionTriangle dimension = DimensionTriangle::Ensemble;  // the one that a change of size is for
  double largeur = 1;                                         // of the drawing, over that of the start
  double hauteur = 1;
  double fenetre = 1;  // of the window printed, over the one that holds the drawing
};

EtatTriangle NouveauTriangle(FichierTrg trg);

// Coordinates of the drawing for those of the data: the equilateral triangle, or the right angle.
Position ProjeterTriangle(FormeTriangle forme, double a, double b);
// First and second coordinate of a point in the current order of the axes.
Position CoordonneesDe(const EtatTriangle& etat, const PointTriangle& point);
// Whether a point lies inside the sides that were moved.
bool DansLesCotes(const CotesTriangle& cotes, Position coordonnees);
// For each point the nearest one before it whose name has the same three first characters.
std::vector<std::optional<std::size_t>> LiensDuTriangle(const FichierTrg& trg);

void DeplacerTexte(EtatTriangle& etat, SensTriangle sens);
void DeplacerTexte(EtatTriangle& etat, Position deplacement);
void ChangerTaille(EtatTriangle& etat, bool plus);
void ChangerFenetreTriangle(EtatTriangle& etat, bool plus);
// Moves a side towards the inside, or back; the triangle keeps kHauteurMinimum, and no side leaves it.
void DeplacerCote(EtatTriangle& etat, CoteTriangle cote, bool dedans);
// The initial drawing again, the chosen text and dimension apart.
void ReinitialiserTriangle(EtatTriangle& etat);

// How far from its first place, right of its point, the label of an entry was put to keep clear of the others; points
// of the page.
Position EcartDeLaPlace(const EtatTriangle& etat, std::size_t entree);

// The picture; each text and mark stands for its entry of the list.
Dessin DessinerTriangle(const EtatTriangle& etat);

}  // namespace quelvar::tables
