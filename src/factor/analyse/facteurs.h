// The analysis of one table: its deviations and its factors with coordinates, contributions and squared cosines, as
// plain numbers that the editions and the coordinate files are drawn from.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

#include "factor/analyse/extraction.h"
#include "factor/analyse/tableau.h"

namespace quelvar::factor {

// One factor on the rows or on the columns, by position.
struct CoteFacteur {
  std::vector<double> coordonnees;  // thousandths; those of columns are rounded to single precision
  std::vector<std::int16_t> cpf;    // contribution to the factor, per mille
  std::vector<std::int16_t> cos2;   // per mille
};

struct FacteurAnecar {
  double valeurPropre = 0;
  double pourcentage = 0;  // of the total inertia
  std::int16_t part = 0;   // the same, per mille
  std::int64_t tours = 0;
  bool converge = true;
  CoteFacteur lignes;
  CoteFacteur colonnes;
};

struct AnalyseAnecar {
  TypeAnalyse type = TypeAnalyse::Afc;
  Ecarts ecarts;
  std::vector<FacteurAnecar> facteurs;
  std::vector<std::int16_t> qltLignes;  // sum of the squared cosines of the factors so far, per mille
  std::vector<std::int16_t> qltColonnes;
  int sommeParts = 0;  // of the factors so far, per mille
  // What the coordinates in whole thousandths are shown multiplied by: a power of ten.
  double echelle = 1;
};

// Coordinates of the factor under way, in their own unit, active elements first.
struct FacteurCourant {
  std::vector<double> f;  // rows
  std::vector<double> g;  // columns
  double valeurSinguliere = 0;

  Composante EnComposante() const { return {f, g, valeurSinguliere}; }
};

// What a factor gives back of the deviations, on the active elements.
struct ElementReconstitue {
  double part = 0;        // weight, percent
  double coordonnee = 0;  // thousandths
  double semi = 0;        // half of the product that gives the deviation back, in roots of individuals
};
struct Reconstitution {
  Matrice effectifs;  // rows x columns, in individuals
  std::vector<ElementReconstitue> lignes;
  std::vector<ElementReconstitue> colonnes;
  double effectif = 0;
  double valeurSinguliere = 0;
};
// Raises kArgumentIncorrect for a total below 0.
Reconstitution ReconstituerEcarts(const TableauAnecar& tableau, const Ecarts& ecarts, const FacteurCourant& facteur);

// Turns the counts of the table into deviations. Raises kDepassementCapacite.
AnalyseAnecar CommencerAnalyse(TableauAnecar& tableau, TypeAnalyse type);

// Finds the next factor of what is left of the deviations, adds it to the analysis and returns its coordinates.
// `suivre` is told the number of each round. Raises kArgumentIncorrect and kDepassementCapacite.
FacteurCourant ExtraireFacteur(TableauAnecar& tableau, AnalyseAnecar& analyse,
                               const std::function<void(std::int64_t)>& suivre);

// The elements of a factor that a sorted listing shows, by position: those whose contribution is at or above the
// threshold (per mille), in the order of the contributions signed like the coordinates, as the exchange sort leaves
// them.
struct ListeTriee {
  const ElementsAnecar& elements;
  CoteFacteur cote;  // coordinates at the scale of the analysis
  std::vector<std::size_t> actifs;
  std::vector<std::size_t> supplementaires;
};
ListeTriee TrierElements(const ElementsAnecar& elements, CoteFacteur cote, double echelle, int seuil);

// The contribution of an element that is like all others of so many, per mille. Raises kDepassementCapacite for none.
std::int16_t CpfMoyen(std::size_t actifs);

// The power of ten that gives the largest coordinate three digits in thousandths, where it has fewer after a principal
// component analysis; else 1. To be called when all factors are there.
double EchelleDesCoordonnees(const AnalyseAnecar& analyse);

// Takes the factor off the active cells and chooses the row that the next stop test follows.
void DeflaterActives(TableauAnecar& tableau, AnalyseAnecar& analyse, const FacteurCourant& facteur);
// Takes it off the supplementary rows and columns.
void DeflaterSupplementaires(TableauAnecar& tableau, const AnalyseAnecar& analyse, const FacteurCourant& facteur);

}  // namespace quelvar::factor
