// PrepGraphe and Graphe: the factor plane of the generic, for the form that shows it, and as a run of its own that
// writes the picture.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/fichiers/jeu.h"
#include "core/programme/programme.h"
#include "factor/plan/plan.h"

namespace quelvar::factor {

// Reads .MOD, .FAJ, .FAI, .PEM, .PEL, .CAH and the shares of the factors in the last report (.AFC or .ACP), and starts
// the report .PRT. The run can't do without the files of `exigences`; it goes on without the others. Nothing when it
// has ended there; its report is shown then.
std::optional<DonneesPlan> PrepGraphe(const Contexte& contexte, const ExigencesGraphe& exigences = {});

// Computes the ellipses asked for, which starts .PRT anew; without any, leaves everything as it is. False when the run
// was stopped and its report shown.
bool ActualiserEllipses(const Contexte& contexte, EtatPlan& etat);

// Replaces the Pajek network file of the generic by the links read. Raises the failures of JeuDeFichiers: the former
// file then stays.
void EcrireReseau(const Contexte& contexte, const EtatPlan& etat);
// The same as one of the files of a set.
void EcrireReseau(const Contexte& contexte, const EtatPlan& etat, JeuDeFichiers& sorties);

// What a click tells of an element: its long label and, for an individual, what its line of the .DAT says behind "$$".
// Raises the failures of LecteurLignes.
std::string TexteDuClic(const Contexte& contexte, const EtatPlan& etat, std::size_t element);

enum class CahDuGraphe : std::uint8_t { Aucune, Lignes, Couleurs };

// The controls of the form, for a script.
struct OptionsGraphe {
  std::string fichier;  // .svg; empty for generic and "Fac.svg"
  std::string horizontal = "1";
  std::string vertical;  // empty: the second factor, or the CPF of the only one
  bool inverserX = false;
  bool inverserY = false;
  bool echanger = false;
  bool pointExact = false;
  bool contributions = false;
  bool longs = false;
  bool information = false;
  bool individus = false;
  EnsemblePoints ensemble = EnsemblePoints::Tous;
  int niveauCpf = 0;
  TailleTexte taille = TailleTexte::Moyenne;
  bool gras = false;
  double zoomLargeur = 100;  // percent
  double zoomHauteur = 100;
  double page = 100;
  double versLaDroite = 0;  // thousandths of the window
  double versLeHaut = 0;
  bool liens = false;
  bool liensDeLignes = false;
  int progressif = 0;  // 0: all links
  bool values = false;
  std::optional<double> ecMin;  // left out: 0, or 90 for the links between rows
  double ecSup = 100;
  std::optional<ModeArbre> mode;
  bool arbre = false;
  bool pajek = false;
  CahDuGraphe cah = CahDuGraphe::Aucune;
  int niveauCah = -1;    // left out: all steps
  int classes = 0;       // 0: by the level
  int tirage = 0;        // seed of the colours of the classes, 0: in turn
  std::string ellipses;  // of the letters C, M and I
  std::vector<std::string> marques;

  bool operator==(const OptionsGraphe&) const = default;
};

// Links, rows' links, the tree or the network file are asked for.
bool DemandeDesLiens(const OptionsGraphe& options);

// The options that make the picture as the form has it, but for what the sums of many moves leave of rounding, which
// may turn a last digit.
OptionsGraphe OptionsDuPlan(const EtatPlan& etat, bool pajek);
// The other way round, what a box or a button stands for: how points, links, tree, classes and ellipses are drawn. The
// rest is changed by itself, for it follows from something else than an option as it stands: axes, which may change
// places; levels and limits, which count once they are typed; marks; the frame.
void PoserLesCoches(const OptionsGraphe& options, ReglagesPlan& reglages);

// Preparation, settings, ellipses, picture. A setting that the data refuse stops the run.
Fin Graphe(const Contexte& contexte, const OptionsGraphe& options);

}  // namespace quelvar::factor
