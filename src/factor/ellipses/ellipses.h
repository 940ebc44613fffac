// Inertia ellipses: for the modalities marked on the factor graph, the ellipse of the cloud of the individuals who have
// the modality, on the plane of the two factors shown.
//
// The half axes are kappa times the square roots of the eigenvalues of the covariance matrix of the cloud, as in
// B. Le Roux and H. Rouanet, "Geometric Data Analysis" (2004); here the centre is the point of the modality in the
// cloud of the individuals and not their mean.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/dessin/dessin.h"
#include "core/programme/programme.h"
#include "core/resultats/tableau.h"

namespace quelvar::factor {

enum class GenreEllipse : std::uint8_t { Concentration, Mediane, Indicatrice };

// In the order in which they are computed, printed and named.
inline constexpr std::array kGenresEllipse = {GenreEllipse::Concentration, GenreEllipse::Mediane,
                                              GenreEllipse::Indicatrice};

// 2, the square root of -2 ln(1 - 0.5), and 1.
double Kappa(GenreEllipse genre);
// Share of the individuals inside the ellipse of a normal cloud, percent.
double PourcentageDIndividus(double kappa);

// The boxes that are ticked.
struct ChoixEllipses {
  bool concentration = false;  // CheckEllipseC
  bool mediane = false;        // CheckEllipseM
  bool indicatrice = false;    // CheckEllipseI

  bool Voulue(GenreEllipse genre) const;
  bool Aucune() const { return !concentration && !mediane && !indicatrice; }
};

// What stands behind line 1 of the .MOD in the title of the picture; empty without an ellipse.
std::string SuiteDuTitre(const ChoixEllipses& choix);

// Sums over the individuals who have a modality, coordinates in units (thousandths of the files divided by 1000).
struct Nuage {
  std::int64_t effectif = 0;
  double sx = 0, sxx = 0, sy = 0, syy = 0, sxy = 0;
  std::vector<Position> points = {};

  void Ajouter(double x, double y);
  // The mean of the points; there is at least one.
  Position Centre() const;
};

struct AxesDInertie {
  double lambda1 = 0;  // eigenvalues of the covariance matrix, the larger one first
  double lambda2 = 0;
  double angle = 0;  // direction of the first, radians, above -pi/2 and up to pi/2
};

// Nothing when the second eigenvalue is negative by more than rounding (1E-9 of the first), or when the sums are beyond
// a double. The cloud must not be empty.
std::optional<AxesDInertie> AxesDuNuage(const Nuage& nuage);

// The 101 points of the 100 chords, in thousandths around the centre (thousandths).
std::vector<Position> ContourDEllipse(Position centre, const AxesDInertie& axes, double kappa);

struct AxeDuPlan {
  int facteur = 1;       // from 1
  bool inverse = false;  // the coordinates are shown with the other sign
};

// A modality marked on the graph, with the coordinates of its .FAJ line on the two factors, thousandths, never
// reversed.
struct ModaliteMarquee {
  std::string nom;  // 4 characters
  std::string intitule;
  double horizontal = 0;
  double vertical = 0;
};

struct DemandeEllipses {
  AxeDuPlan horizontal{1};
  AxeDuPlan vertical{2};
  ChoixEllipses choix;
  std::vector<ModaliteMarquee> modalites;
  double echelle = 1;                       // what the coordinates of the plane are multiplied by
  std::vector<std::string> remarques = {};  // on the files of the plane, told in the report
};

// What is drawn for a modality: thousandths, as shown (reversed axes included).
struct EllipsesDeModalite {
  std::string nom;
  std::string intitule;
  std::int64_t effectif = 0;
  Position centre;
  AxesDInertie axes;
  std::vector<GenreEllipse> genres;   // those that are wanted
  std::vector<double> observes = {};  // percent of the individuals inside each of them
};

// A row each ellipse, under its kind: kappa, the share of the individuals of a normal cloud inside it, percent, and the
// share of those observed where it is another one to the decimal that is printed.
TableauEdite TableDesEllipses(const EllipsesDeModalite& modalite);

// Percent of the points that lie inside the ellipse of that kappa around their mean.
double PourcentageObserve(const Nuage& nuage, const AxesDInertie& axes, double kappa);

// .MOD, the report of the analysis, .FI2 and the table of the individuals (without a name when it is not needed).
using FichiersDesEllipses = std::array<FichierObligatoire, 4>;

// What measuring has found, for the picture and for the report.
struct BilanEllipses {
  std::optional<FichiersDesEllipses> fichiers = {};  // what was looked for
  std::vector<std::string> etrangers = {};           // what of the plane's files does not belong to it
  std::vector<std::string> remarques = {};           // lines on the .MOD
  std::vector<EllipsesDeModalite> tracees = {};
  std::vector<std::string> avis = {};  // for message boxes
  std::optional<Erreur> arret = {};    // why there are no ellipses, with its place
};

// Reads .AFC or .ACP, .FI2, .MOD and .BRT (.CDG after an analysis of the logical coding) anew and writes nothing.
// Modalities without individuals, and those whose ellipse can't be computed (one of the `avis`), are passed over. A
// failure of reading, a missing file and files that refuse the ellipses are the `arret`.
BilanEllipses MesurerEllipses(const Contexte& contexte, const DemandeEllipses& demande);

// A run of its own: measures, tells, and writes the report .PRT anew. Nothing when it was stopped; its report has been
// shown then.
std::optional<std::vector<EllipsesDeModalite>> CalculerEllipses(const Contexte& contexte,
                                                                const DemandeEllipses& demande);
// The report .PRT of ellipses that are measured already, shown at its end.
Fin RapporterEllipses(const Contexte& contexte, const BilanEllipses& bilan, ModeEcriture mode);

// Lines of a modality in the report.
void ImprimerEllipses(Rapport& rapport, const EllipsesDeModalite& modalite);

// Draws the chords, and a mark and "PM" with the label or the name at each centre.
void TracerEllipses(Dessin& dessin, std::span<const EllipsesDeModalite> modalites);
void TracerCentres(Dessin& dessin, std::span<const EllipsesDeModalite> modalites, bool intitulesLongs, Police police);

}  // namespace quelvar::factor
