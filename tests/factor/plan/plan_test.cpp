#include "factor/plan/plan.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>

#include "core/options/noms.h"
#include "core/texte/texte.h"
#include "factor/plan/graphe.h"

using namespace quelvar::factor;

namespace quelvar {
namespace {

// Columns A to D at the corners, E (supplementary) near the origin, then two rows.
//        F1    CPF   F2   CPF
// A     800    400  400    10
// B    -800    300  400     5
// C    -800    100 -400   600
// D     800     50 -400    60
// E      10      0   20     0
// R1    100      7   50     7
// R2   -100      8  -50     8
DonneesPlan Carre() {
  DonneesPlan donnees;
  donnees.titre = "Essai";
  donnees.facteurs = 2;
  donnees.colonnes = 5;
  const struct {
    const char* nom;
    const char* intitule;
    bool sup;
    double f1, c1, f2, c2;
  } lignes[] = {{"A   ", "Un long intitule de vingt", false, 800, 400, 400, 10},
                {"B   ", "", false, -800, 300, 400, 5},
                {"C   ", "Troisieme", false, -800, 100, -400, 600},
                {"D   ", "", false, 800, 50, -400, 60},
                {"E   ", "", true, 10, 0, 20, 0},
                {"R1  ", "", false, 100, 7, 50, 7},
                {"R2  ", "", true, -100, 8, -50, 8}};
  donnees.coordonnees = Matrice(2, std::size(lignes));
  donnees.cpf = Matrice(2, std::size(lignes));
  for (std::size_t i = 0; i < std::size(lignes); ++i) {
    donnees.points.push_back({lignes[i].nom, lignes[i].intitule, lignes[i].sup, true});
    donnees.coordonnees(0, i) = lignes[i].f1;
    donnees.cpf(0, i) = lignes[i].c1;
    donnees.coordonnees(1, i) = lignes[i].f2;
    donnees.cpf(1, i) = lignes[i].c2;
  }
  return donnees;
}

// Names of the elements whose labels the picture holds, in their order.
std::string Ecrits(const EtatPlan& etat) {
  std::string noms;
  const Dessin dessin = DessinerPlan(etat);
  for (const FormeDessinee& forme : dessin.Formes())
    if (forme.genre == GenreForme::Texte && forme.id >= 0)
      noms += std::string(Rogner(etat.donnees.points[static_cast<std::size_t>(forme.id)].nom)) + " ";
  return noms;
}

struct Trait {
  Position de, vers;
  Couleur couleur;

  friend bool operator==(const Trait& a, const Trait& b) {
    return a.de.x == b.de.x && a.de.y == b.de.y && a.vers.x == b.vers.x && a.vers.y == b.vers.y &&
           a.couleur == b.couleur;
  }
};

std::vector<Trait> Traits(const EtatPlan& etat, std::string_view calque) {
  std::vector<Trait> traits;
  const Dessin dessin = DessinerPlan(etat);
  for (const FormeDessinee& forme : dessin.Formes())
    if (forme.genre == GenreForme::Ligne && dessin.Calques()[forme.calque].nom == calque)
      traits.push_back({dessin.Points(forme)[0], dessin.Points(forme)[1], forme.plume.couleur});
  return traits;
}

TEST(Plan, WindowKeepsTheRatioAndHoldsTheOrigin) {
  EtatPlan etat = NouveauPlan(Carre());
  // 1600 wide, 800 high: the height grows to 0.767 of the width.
  EXPECT_DOUBLE_EQ(etat.cadre.limites.gauche, -800);
  EXPECT_DOUBLE_EQ(etat.cadre.limites.droite, 800);
  EXPECT_DOUBLE_EQ(etat.cadre.limites.haut, 800 * 0.767);
  EXPECT_DOUBLE_EQ(etat.cadre.limites.bas, -800 * 0.767);

  etat.reglages.ensemble = EnsemblePoints::Supplementaires;  // E and R2: 110 by 70
  Caler(etat);
  EXPECT_DOUBLE_EQ(etat.cadre.limites.gauche, -100);
  EXPECT_DOUBLE_EQ(etat.cadre.limites.droite, 10);

  // On an axis of CPF each axis has its own scale; 0 is inside although every shown CPF is above.
  etat.reglages.ensemble = EnsemblePoints::Actifs;
  etat.reglages.vertical.cpf = true;
  Caler(etat);
  EXPECT_DOUBLE_EQ(etat.cadre.limites.haut, 600);
  EXPECT_DOUBLE_EQ(etat.cadre.limites.bas, 0);
  EXPECT_DOUBLE_EQ(etat.cadre.limites.gauche, -800);

  etat.reglages.vertical = {2, false, true};
  EXPECT_DOUBLE_EQ(PlaceDe(etat, 0).y, -400);
}

TEST(Plan, ALevelAboveEveryCpfLeavesTheFrameAndTheAxes) {
  EtatPlan etat = NouveauPlan(Carre());
  etat.reglages.niveauCpf = 601;
  Caler(etat);
  EXPECT_DOUBLE_EQ(etat.cadre.limites.droite, 800);
  EXPECT_EQ(Ecrits(etat), "");
  const std::vector<Trait> axes = Traits(etat, "axes");
  ASSERT_EQ(axes.size(), 2U);
  EXPECT_DOUBLE_EQ(axes[0].de.y, 0);
  EXPECT_DOUBLE_EQ(axes[1].de.x, 0);
  // From edge to edge of the box, 55 thousandths outside the window.
  EXPECT_NEAR(axes[0].de.x, -800 - 0.055 * 1600, 1e-9);
  EXPECT_NEAR(axes[0].vers.x, 800 + 0.055 * 1600, 1e-9);
}

TEST(Plan, AxesAsTyped) {
  const DonneesPlan donnees = Carre();
  const struct {
    const char* texte;
    bool admis;
    int facteur;
    bool cpf;
  } cas[] = {{"1", true, 1, false},   {" 2 ", true, 2, false},         {"C", true, 2, true},
             {"c", true, 2, true},    {"c1", true, 1, true},           {"3", false, 2, false},
             {"0", false, 2, false},  {"", false, 2, false},           {"1x", false, 2, false},
             {"-1", false, 2, false}, {"99999999999", false, 2, false}};
  for (const auto& c : cas) {
    AxePlan axe{2};
    EXPECT_EQ(FixerAxe(donnees, axe, c.texte), c.admis) << c.texte;
    EXPECT_EQ(axe.facteur, c.facteur) << c.texte;
    EXPECT_EQ(axe.cpf, c.cpf) << c.texte;
  }
  // The command names the factor where a "C" alone would be on another one.
  EtatPlan etat = NouveauPlan(donnees);
  for (AxePlan* axe : {&etat.reglages.horizontal, &etat.reglages.vertical}) FixerAxe(donnees, *axe, "C2");
  EXPECT_EQ(OptionsDuPlan(etat, false).horizontal, "C2");
  EXPECT_EQ(OptionsDuPlan(etat, false).vertical, "C");
}

// A row that has the name of a column, as in a table of fathers and sons, keeps its own mark.
TEST(Plan, MarksByName) {
  EtatPlan etat = NouveauPlan(Carre());
  etat.donnees.points[5].nom = "b   ";
  const auto marquer = [&](const char* noms) { return MarquerParNoms(etat, NomsSepares(noms)).value_or(""); };
  const auto marques = [&] {
    std::string codes;
    for (const std::uint8_t code : etat.reglages.marques) codes += code == 0 ? '.' : code == kMarqueColonne ? 'c' : 'l';
    return codes;
  };
  BasculerMarque(etat, 5);
  EXPECT_EQ(NomsMarques(etat), (std::vector<std::string>{"b:2"}));
  EXPECT_EQ(marquer("b:2"), "");
  EXPECT_EQ(marques(), ".....l.");
  EXPECT_EQ(marquer("a, B,B: 2"), "");
  EXPECT_EQ(marques(), "cc...l.");
  EXPECT_EQ(NomsMarques(etat), (std::vector<std::string>{"A", "B", "b:2"}));
  for (const char* absent : {"B:3", "B:0", "B:", "B:x", "Z:1", ":1", "B:9999999999"})
    EXPECT_EQ(marquer(absent), absent);
  EXPECT_EQ(marques(), "cc...l.") << "refused names change nothing";
}

TEST(Plan, FewerFactorsThanAxes) {
  DonneesPlan donnees = Carre();
  EXPECT_EQ(NouveauPlan(donnees).reglages.troisieme, 0);
  donnees.facteurs = 1;
  const EtatPlan etat = NouveauPlan(donnees);
  EXPECT_TRUE(etat.reglages.vertical.cpf);
  EXPECT_EQ(PlaceDe(etat, 1).y, 300);
}

// Labels stand whole inside the box, at their points otherwise; beyond the box nothing is drawn.
TEST(Plan, LabelsAreNotCut) {
  EtatPlan etat = NouveauPlan(Carre());
  etat.reglages.intitulesLongs = true;
  for (const bool exact : {false, true}) {
    etat.reglages.pointExact = exact;
    const Dessin dessin = DessinerPlan(etat);
    Zone cadre;
    for (const FormeDessinee& forme : dessin.Formes())
      if (dessin.Calques()[forme.calque].nom == "cadre") cadre = dessin.Etendue(forme);
    for (const FormeDessinee& forme : dessin.Formes()) {
      if (forme.genre != GenreForme::Texte || forme.id < 0) continue;
      const Zone zone = dessin.Etendue(forme);
      EXPECT_TRUE(cadre.Contient({zone.x, zone.y})) << forme.texte;
      EXPECT_TRUE(cadre.Contient({zone.x + zone.largeur, zone.y + zone.hauteur})) << forme.texte;
      if (forme.texte != "B" || exact) continue;
      EXPECT_EQ(forme.decalage.x, 0);
      EXPECT_EQ(forme.decalage.y, 0);
    }
  }
  etat.coefficient = Coefficient::Fort;
  for (int i = 0; i < 3; ++i) ChangerEchelle(etat, true);
  EXPECT_EQ(Ecrits(etat), "E R1 R2 ");
}

TEST(Plan, AWindowOfAnySizeKeepsTheScale) {
  EtatPlan etat = NouveauPlan(Carre());
  const Fenetre debut = etat.cadre.limites;
  // A larger window shows more at the same scale.
  const double points = DessinerPlan(etat).VersPage({800, 0}).x - DessinerPlan(etat).VersPage({0, 0}).x;
  etat.coefficient = Coefficient::Fort;
  ChangerPage(etat, true);
  EXPECT_NEAR(etat.cadre.limites.droite, debut.droite * 1.5, 1e-9);
  EXPECT_NEAR(DessinerPlan(etat).VersPage({800, 0}).x - DessinerPlan(etat).VersPage({0, 0}).x, points, points * 0.05);
  const Position fixe{200, 100};
  // No wheel makes the window vanish or overflow.
  for (int i = 0; i < 2000; ++i) ZoomerAutour(etat, 2, fixe);
  EXPECT_GT(etat.cadre.limites.droite, etat.cadre.limites.gauche);
  for (int i = 0; i < 2000; ++i) ZoomerAutour(etat, 0.5, fixe);
  EXPECT_LT(etat.cadre.limites.droite - etat.cadre.limites.gauche, 1e10);
}

TEST(Plan, WhatLiesUnderTheMouse) {
  EtatPlan etat = NouveauPlan(Carre());
  etat.donnees.coordonnees(0, 5) = 790;  // R1 lies beside A, E is alone
  etat.donnees.coordonnees(1, 5) = 398;
  const Dessin dessin = DessinerPlan(etat);
  // The box goes to 10 thousandths of the window: 16 across.
  EXPECT_EQ(ElementsSous(etat, dessin, dessin.VersPage({792, 399})), (std::vector<std::size_t>{5, 0}));
  EXPECT_EQ(ElementsSous(etat, dessin, dessin.VersPage({777, 398})), (std::vector<std::size_t>{5}));
  EXPECT_TRUE(ElementsSous(etat, dessin, dessin.VersPage({300, 300})).empty());
  etat.reglages.niveauCpf = 20;  // R1 is not shown any more
  EXPECT_EQ(ElementsSous(etat, DessinerPlan(etat), dessin.VersPage({792, 399})), (std::vector<std::size_t>{0}));
}

EtatPlan AvecLiens() {
  EtatPlan etat = NouveauPlan(Carre());
  etat.donnees.liens = {{1, 2, 90}, {2, 3, 80}, {1, 3, 70}, {4, 5, 60}, {1, 6, 50}};
  etat.reglages.liens.actif = true;
  return etat;
}

TEST(Plan, MarksChooseLinksAndColours) {
  EtatPlan etat = AvecLiens();
  BasculerMarque(etat, 3);
  EXPECT_EQ(etat.reglages.marques[3], kMarqueColonne);
  EXPECT_EQ(Traits(etat, "liens"), (std::vector<Trait>{{{800, -400}, {10, 20}, Couleur::Rouge}}));
  BasculerMarque(etat, 5);
  EXPECT_EQ(etat.reglages.marques[5], kMarqueLigne);
  EXPECT_EQ(Traits(etat, "liens").size(), 2U);
  etat.reglages.liens.actif = false;
  std::map<std::int32_t, Couleur> couleurs;
  const Dessin dessin = DessinerPlan(etat);
  for (const FormeDessinee& forme : dessin.Formes())
    if (forme.id >= 0) couleurs[forme.id] = forme.police.couleur;
  EXPECT_EQ(couleurs[3], Couleur::Vert);
  EXPECT_EQ(couleurs[5], Couleur::Bleu);
  EXPECT_EQ(couleurs[0], Couleur::Noir);
  BasculerMarque(etat, 3);
  EXPECT_FALSE(PorteUneMarque(etat, kMarqueColonne));
  EXPECT_TRUE(PorteUneMarque(etat, kMarqueLigne));
}

// (A,B), then (C,D), then both, then E with all of them.
ArbreCah Arbre() { return {false, {{1, 2, 1, 2, 1}, {3, 4, 3, 4, 2}, {1, 3, -1, -2, 3}, {1, 5, -3, 5, 4}}}; }

TEST(Plan, WardTreeAsLines) {
  EtatPlan etat = NouveauPlan(Carre());
  etat.donnees.cah = Arbre();
  etat.reglages.cah.actif = true;
  etat.reglages.cah.niveau = 3;
  const auto bleu = Couleur::BleuFonce;
  EXPECT_EQ(Traits(etat, "cah"),
            (std::vector<Trait>{
                {{800, 400}, {-800, 400}, bleu}, {{-800, -400}, {800, -400}, bleu}, {{0, 400}, {0, -400}, bleu}}));
  EXPECT_EQ(Ecrits(etat), "A B C D ");
  EXPECT_EQ(Traits(etat, "axes").size(), 2U);
  etat.reglages.cah.niveau = 4;
  // The middle of the middles, whatever the sizes.
  EXPECT_EQ(Traits(etat, "cah").back(), (Trait{{0, 0}, {10, 20}, bleu}));
}

TEST(Plan, WardClassesInColours) {
  EtatPlan etat = NouveauPlan(Carre());
  etat.donnees.cah = Arbre();
  etat.reglages.cah.actif = true;
  etat.reglages.cah.trace = TraceCah::Couleurs;
  etat.reglages.cah.niveau = 2;
  EXPECT_EQ(Traits(etat, "cah"),
            (std::vector<Trait>{{{-800, 400}, {800, 400}, Couleur::Bleu}, {{800, -400}, {-800, -400}, Couleur::Vert}}));
  EXPECT_EQ(Ecrits(etat), "A B C D ");
  etat.reglages.cah.niveau = 4;  // one class of five: a star from its first member
  const std::vector<Trait> etoile = Traits(etat, "cah");
  ASSERT_EQ(etoile.size(), 4U);
  for (const Trait& trait : etoile) EXPECT_TRUE(trait.vers.x == 800 && trait.vers.y == 400);

  EXPECT_EQ(ClassesAuNiveau(Arbre(), 1), 1U);
  EXPECT_EQ(ClassesAuNiveau(Arbre(), 2), 2U);
  EXPECT_EQ(ClassesAuNiveau(Arbre(), 3), 1U);
  EXPECT_EQ(NiveauDesClasses(Arbre(), 1), 4U);
  EXPECT_EQ(NiveauDesClasses(Arbre(), 3), std::nullopt);
}

TEST(Plan, IndividualsAreShownWithTheirOwnClassification) {
  EtatPlan etat = NouveauPlan(Carre());
  etat.donnees.burt = 1;
  etat.donnees.cah = Arbre();
  etat.reglages.cah.actif = true;
  EXPECT_EQ(LigneDuPlan(etat, 0), "5 points sur 7, 0 classe au niveau 0");
  etat.donnees.cah->individus = true;
  etat.reglages.cah.niveau = 2;
  EXPECT_EQ(LigneDuPlan(etat, 0), "7 points sur 7, 2 classes au niveau 2");

  etat.donnees.coordonnees(0, 5) = 1000;
  InclurePoints(etat);  // from -800 to 800
  EXPECT_NEAR(etat.cadre.limites.gauche, -800, 1e-9);
  EXPECT_NEAR(etat.cadre.limites.droite, 1000, 1e-9);
}

TEST(Plan, ItemsOfAClassificationOfIndividuals) {
  DonneesPlan donnees = Carre();
  donnees.cah = Arbre();
  donnees.cah->individus = true;
  EXPECT_EQ(ElementDeCah(donnees, 2), 6U);
  EXPECT_EQ(ElementDeCah(donnees, 3), std::nullopt);
  donnees.points.resize(5);  // a square table: its rows are the active modalities
  donnees.points[1].supplementaire = true;
  EXPECT_EQ(ElementDeCah(donnees, 2), 2U);
  EXPECT_EQ(ElementDeCah(donnees, 4), std::nullopt);
}

TEST(Plan, EllipsesAreThoseOfMarkedColumns) {
  EtatPlan etat = NouveauPlan(Carre());
  etat.reglages.ellipses.mediane = true;
  etat.reglages.horizontal.inverse = true;
  BasculerMarque(etat, 2);
  BasculerMarque(etat, 6);
  const DemandeEllipses demande = EllipsesDemandees(etat);
  ASSERT_EQ(demande.modalites.size(), 1U);
  EXPECT_EQ(demande.modalites[0].nom, "C   ");
  EXPECT_EQ(demande.modalites[0].horizontal, -800);  // as in the file, although the axis is reversed
  EXPECT_TRUE(demande.horizontal.inverse);
  // An ellipse beyond the window widens it.
  etat.ellipses = {{"C   ", "", 10, {-800, -400}, {0.04, 0.01, 0}, {GenreEllipse::Concentration}}};
  InclureEllipses(etat);
  EXPECT_LE(etat.cadre.limites.gauche, -1200);
  etat.reglages.vertical.cpf = true;
  EXPECT_TRUE(EllipsesDemandees(etat).choix.Aucune());
}

}  // namespace
}  // namespace quelvar
