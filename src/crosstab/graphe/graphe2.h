// The picture of one crosstab as the form Graphe2 holds it: for each column the deviations of the rows from the margin,
// in the table observed and in the maximum table, with what its controls do to the drawing.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "core/calcul/matrice.h"
#include "core/dessin/coefficient.h"
#include "core/dessin/dessin.h"
#include "crosstab/graphe/retenu.h"

namespace quelvar::crosstab {

// A row or a column of the picture.
struct ElementGraphe2 {
  std::string nom;    // four characters
  std::string texte;  // label of the .MOD, empty without one
  double part = 0;    // of the total, percent
};

// One of the two pictures: deviations in points of percentage, and what each column takes of the width.
struct BandeGraphe2 {
  Matrice ecarts;                  // row percentage less the column's share of the total, by row and column
  std::vector<double> plusPetits;  // of each column, at most 0
  std::vector<double> plusGrands;  // of each column, at least 0
  double largeur = 0;              // columns with the gaps between and around them
};

struct DonneesGraphe2 {
  std::string titre;
  std::optional<double> pem;           // percent; none in the original order, where it says nothing of the picture
  std::vector<ElementGraphe2> lignes;  // not empty, in their final order
  std::vector<ElementGraphe2> colonnes;
  BandeGraphe2 observe;
  BandeGraphe2 maximum;
};

// Points of percentage between two columns.
inline constexpr double kEcartementGraphe2 = 5;

DonneesGraphe2 PreparerGraphe2(const TableauRetenu& retenu);

// The initial window, units; how many times that the drawing needs.
inline constexpr double kLargeurInitialeGraphe2 = 135;
inline constexpr double kHauteurInitialeGraphe2 = 216;
double AgrandissementGraphe2(const DonneesGraphe2& donnees);

// A text of the list, and how far it was moved, in points of the page.
struct EntreeGraphe2 {
  std::string texte;
  Position deplacement;
};

inline constexpr std::size_t kEntreeDuTitre = 0;
inline constexpr std::size_t kEntreeDeLEchelle = 1;
inline constexpr std::size_t kEntreeDeLaPremiereLigne = 2;

enum class SensGraphe2 { Haut, Bas, Gauche, Droite };

struct EtatGraphe2 {
  DonneesGraphe2 donnees;
  // Title, scale, row names, column names, then the texts of those that have one.
  std::vector<EntreeGraphe2> entrees;
  std::size_t choisie = 0;
  Coefficient coefficient = Coefficient::Moyen;
  double echelle = 1;         // of the drawing: units grow, texts keep their size
  double fenetre = 1;         // of the window printed, over the one that holds the drawing
  double valeurEchelle = 10;  // points of percentage of the scale bar
};

EtatGraphe2 NouveauGraphe2(const DonneesGraphe2& donnees);
void DeplacerEntree(EtatGraphe2& etat, SensGraphe2 sens);
void DeplacerEntree(EtatGraphe2& etat, Position deplacement);
void ChangerEchelle(EtatGraphe2& etat, bool plus);
void ChangerFenetre(EtatGraphe2& etat, bool plus);
// The next round value: 1, 2, 5, 10, 20, 50, 100.
void ChangerValeur(EtatGraphe2& etat, bool plus);
// The initial drawing again.
void Reinitialiser(EtatGraphe2& etat);

// A percentage as the picture shows it: "6.3".
std::string TexteDePourcentage(double pourcentage);
// Title line of the scale: "Echelle=10 PEM=41.2% ", or "Echelle=10 " in the original order.
std::string TexteEchelle(const EtatGraphe2& etat);
// Limits of the window in units, on two lines: "xi=0 Xa=135", "yi=0 ya=216".
std::string TexteFenetre(const EtatGraphe2& etat);

// The picture. Each text stands for its entry of the list.
Dessin DessinerGraphe2(const EtatGraphe2& etat);

}  // namespace quelvar::crosstab
