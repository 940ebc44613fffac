// The factor plane: the elements of an analysis placed on two factors, the links, classes or ellipses laid over them,
// and the settings of the form Graphe3. Everything here is a function of the data and of the settings.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/calcul/matrice.h"
#include "core/dessin/coefficient.h"
#include "core/dessin/dessin.h"
#include "factor/coupe/coupe.h"
#include "factor/ellipses/ellipses.h"
#include "factor/plan/arbre.h"
#include "factor/plan/discordances.h"
#include "tables/liens/liens.h"

namespace quelvar::factor {

inline constexpr double kHauteurSurLargeur = 0.767;  // of the window, and of the picture
inline constexpr double kUnitesDeFenetre = 1000;     // moves, margins and small boxes are in thousandths of the window

// --- what the files give ---

struct PointPlan {
  std::string nom;       // 4 characters
  std::string intitule;  // at most 25, empty without one
  bool supplementaire = false;
  bool place = false;  // has coordinates
};

struct DonneesPlan {
  std::string titre;         // line 1 of the .MOD
  int burt = 0;              // BRT=
  std::size_t facteurs = 0;  // at least 1
  std::size_t colonnes = 0;  // the first elements, in the order of the .MOD; rows or individuals stand behind
  std::vector<PointPlan> points;
  Matrice coordonnees;                    // factors x elements, thousandths times `echelle`
  double echelle = 1;                     // of small coordinates of a principal component analysis
  Matrice cpf;                            // factors x elements, per mille
  std::vector<double> parts;              // of each factor in the inertia, percent; empty when no report tells them
  bool liensPresents = false;             // .PEM exists
  std::vector<tables::Lien> liens;        // .PEM: elements counted from 1
  std::vector<tables::Lien> liensLignes;  // .PEL
  std::optional<ArbreCah> cah;
  bool arbrePresent = false;              // .CAH exists
  std::vector<Discordance> discordances;  // what is not of the same state of the table

  bool Individus() const { return burt == 1; }  // the elements behind the columns are individuals
};

// --- what the form holds ---

enum class EnsemblePoints : std::uint8_t { Tous, Actifs, Supplementaires };  // Opt1, Opt2, Opt3
enum class TailleTexte : std::uint8_t { Petite, Moyenne, Grande };           // Option1, Option2, Option3
enum class TraceCah : std::uint8_t { Lignes, Couleurs };                     // BtCouleursNon, BtCouleursOui

struct AxePlan {
  int facteur = 1;
  bool cpf = false;  // "C": the CPF on the factor stands for the coordinate
  bool inverse = false;
};

inline constexpr int kNiveauCpfAuPlus = 1000;         // per mille
inline constexpr double kLimiteDeLienAuPlus = 1000;   // percent: beyond every link
inline constexpr double kEcMinDesLiensDeLignes = 90;  // lower limit that goes with the links of the .PEL

struct ReglagesLiens {
  bool actif = false;   // CheckPEM
  bool lignes = false;  // ChkLgnPEM: those of the .PEL
  bool values = false;  // BtVal: the value stands at the line
  bool arbre = false;   // CheckArbrMin
  // The form takes the links between supplementary elements out with the elements; a script may choose.
  std::optional<ModeArbre> mode;
  std::optional<std::size_t> progressif;  // CheckProg: only so many links
  double ecMin = 0;
  double ecSup = 100;
};

struct ReglagesCah {
  bool actif = false;  // CheckCAH
  TraceCah trace = TraceCah::Lignes;
  std::size_t niveau = 0;               // steps of the tree that are shown
  std::optional<std::uint32_t> hasard;  // seed of colours drawn at random
};

// Colours of marked elements, as the settings keep them.
inline constexpr auto kMarqueColonne = static_cast<std::uint8_t>(Couleur::Vert);
inline constexpr auto kMarqueLigne = static_cast<std::uint8_t>(Couleur::Bleu);

struct ReglagesPlan {
  AxePlan horizontal{1};
  AxePlan vertical{2};
  int troisieme = 3;             // 0 when there are fewer factors
  bool pointExact = false;       // a mark at the place itself, the label beside it
  bool parContribution = false;  // size by contribution
  bool intitulesLongs = false;
  bool information = false;  // line under the picture
  bool individus = false;    // individuals are drawn like the modalities
  EnsemblePoints ensemble = EnsemblePoints::Tous;
  int niveauCpf = 0;
  TailleTexte taille = TailleTexte::Moyenne;
  bool gras = false;
  ReglagesLiens liens;
  ReglagesCah cah;
  ChoixEllipses ellipses;
  std::vector<std::uint8_t> marques;  // colour code of each element: 0, kMarqueColonne, kMarqueLigne
};

enum class DimensionPlan : std::uint8_t { Hauteur, Largeur, Toutes };  // OptH, OptL, OptAll

// The limits shown, thousandths, and the size of the page over the first one.
struct CadrePlan {
  Fenetre limites;
  double page = 1;
};

inline constexpr double kPageMinimum = 0.5;
inline constexpr double kPageMaximum = 4;

struct EtatPlan {
  DonneesPlan donnees;
  ReglagesPlan reglages;
  CadrePlan cadre;
  std::vector<EllipsesDeModalite> ellipses;
  Coefficient coefficient = Coefficient::Moyen;
  DimensionPlan dimension = DimensionPlan::Toutes;
  double pas = 50;  // of a move, units of the window
};

// Factors 1, 2 and 3, every element, the whole tree. With a single factor the vertical axis shows its CPF.
EtatPlan NouveauPlan(DonneesPlan donnees);

// --- the plane ---

double Coordonnee(const DonneesPlan& donnees, const AxePlan& axe, std::size_t element);
Position PlaceDe(const EtatPlan& etat, std::size_t element);
// In the point set, and at the CPF level on one of the two factors at least.
bool EstMontre(const EtatPlan& etat, std::size_t element);
// The larger of its CPF on the two factors.
double CpfDuPoint(const EtatPlan& etat, std::size_t element);
// Short name or long label, without outer blanks.
std::string_view TexteDuPoint(const ReglagesPlan& reglages, const PointPlan& point);

// Limits that hold the shown elements, the ellipses and the origin; every element when none is shown. The two axes have
// one scale unless one of them shows CPF.
void Caler(EtatPlan& etat);
// Limits widened to the ellipses, to the elements shown; no change where they are inside already.
void InclureEllipses(EtatPlan& etat);
void InclurePoints(EtatPlan& etat);

// BtPlus, BtMoins; BtPlusF, BtMoinsF; the arrows, in steps; BoutonValP, BoutonValM; BoutonRAZ.
void ChangerEchelle(EtatPlan& etat, bool plus);
void ChangerPage(EtatPlan& etat, bool plus);
void DeplacerImage(EtatPlan& etat, int versLaDroite, int versLeHaut);
void ChangerPas(EtatPlan& etat, bool plus);
void ReinitialiserCadre(EtatPlan& etat);
// The wheel: `place`, in thousandths, stays where it is. The drag: the plane follows by that much.
void ZoomerAutour(EtatPlan& etat, double facteur, Position place);
void Glisser(EtatPlan& etat, Position de, Position vers);

// Digits that the number of a factor has at most, wherever it is typed.
inline constexpr std::size_t kChiffresDUnFacteur = 4;
// "C", "c", "C2", "2": sets the axis and nothing else; false, and no change, for what is not one of the factors.
bool FixerAxe(const DonneesPlan& donnees, AxePlan& axe, std::string_view texte);
std::string TexteAxe(const AxePlan& axe);
void EchangerAxes(EtatPlan& etat);

// Marks an element that is not, and the other way round.
void BasculerMarque(EtatPlan& etat, std::size_t element);
bool PorteUneMarque(const EtatPlan& etat, std::uint8_t code);
// Marks the elements of these names (without regard to case) and no other one; "OUV" is the first of that name, "OUV:2"
// the second, as a row that is named as a column. Returns the first name that no element has: the marks are then what
// they were.
std::optional<std::string> MarquerParNoms(EtatPlan& etat, const std::vector<std::string>& noms);
// The names of the marked elements, trimmed, in their order, as MarquerParNoms takes them.
std::vector<std::string> NomsMarques(const EtatPlan& etat);

// --- links, classes, ellipses ---

// The links to be drawn by the settings.
LiensDuGraphe LiensMontres(const EtatPlan& etat, bool pajek = false);
// Element of the plane that an item of the tree stands for, nothing beyond what the plane has.
std::optional<std::size_t> ElementDeCah(const DonneesPlan& donnees, std::int32_t item);
// Classes that are left at a level, and the last level that leaves so many; levels go from 0 to the number of steps.
std::size_t ClassesAuNiveau(const ArbreCah& cah, std::size_t niveau);
std::optional<std::size_t> NiveauDesClasses(const ArbreCah& cah, std::size_t classes);
// The modalities with mark 10 on the two factors; none when an axis shows CPF, where an ellipse has no meaning.
DemandeEllipses EllipsesDemandees(const EtatPlan& etat);

// The files that the settings draw.
ExigencesGraphe FichiersMontres(const EtatPlan& etat);

// --- the picture ---

// Frame, axes, ellipses, then links, points, tree or classes, the centres of the ellipses, titles. An element's marks
// stand for it.
Dessin DessinerPlan(const EtatPlan& etat);

// Elements whose small box holds a place of the page, the nearest first.
std::vector<std::size_t> ElementsSous(const EtatPlan& etat, const Dessin& dessin, Position page);
// The line under the picture: what is shown of what there is.
std::string LigneDuPlan(const EtatPlan& etat, std::size_t liensTraces);
// What a tool tip tells of an element: name, label, coordinates and CPF on the two factors.
std::string LigneDInformation(const EtatPlan& etat, std::size_t element);

}  // namespace quelvar::factor
