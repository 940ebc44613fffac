#include "crosstab/graphe/graphe2.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "support/tableau.h"

using namespace quelvar::crosstab;

namespace quelvar {
namespace {

QuestionCroisee Question(std::string nom, std::string intitule, int plafond) {
  QuestionCroisee question;
  question.nom = std::move(nom);
  question.intitule = std::move(intitule);
  question.plafond = plafond;
  return question;
}

TableauRetenu Retenu(const Matrice& effectifs, bool ordre = false) {
  TableauRetenu retenu;
  retenu.tableau = AnalyserTableau(effectifs, {.pourPem = ordre});
  retenu.ordrePem = ordre;
  retenu.ligne = Question("SEX", "Sexe", static_cast<int>(effectifs.Lignes()) - 1);
  retenu.colonne = Question("AGE", "", static_cast<int>(effectifs.Colonnes()) - 1);
  retenu.intitulesLignes = NomsDeModalites(retenu.ligne);
  retenu.intitulesColonnes = NomsDeModalites(retenu.colonne);
  return retenu;
}

// 30 10 / 20 40 with an empty code 0 on both sides and an empty column 2. Margins 50 %: rows at 75 25 / 33.3 66.7;
// the maximum table is 40 0 / 10 50: rows at 100 0 / 16.7 83.3.
TableauRetenu TableauSimple() { return Retenu(essai::MatriceDe({{0, 0, 0, 0}, {0, 30, 0, 10}, {0, 20, 0, 40}})); }

TEST(Graphe2, EcartsALaMarge) {
  const DonneesGraphe2 donnees = PreparerGraphe2(TableauSimple());
  EXPECT_EQ(donnees.titre, "Sexe et AGE");
  ASSERT_EQ(donnees.colonnes.size(), 2U);  // the empty column is left out
  EXPECT_EQ(donnees.colonnes[1].nom, "AGE3");
  EXPECT_EQ(donnees.colonnes[1].part, 50);
  EXPECT_NEAR(donnees.observe.ecarts(0, 0), 25, 1e-9);
  EXPECT_NEAR(donnees.observe.ecarts(1, 1), 50.0 / 3, 1e-9);
  EXPECT_NEAR(donnees.maximum.ecarts(0, 1), -50, 1e-9);
  EXPECT_NEAR(donnees.maximum.ecarts(1, 1), 100.0 / 3, 1e-9);
  EXPECT_NEAR(donnees.observe.plusGrands[1], 50.0 / 3, 1e-9);
  EXPECT_NEAR(donnees.observe.plusPetits[1], -25, 1e-9);
  // Two columns of 41.7 and of 83.3 points, three gaps of 5.
  EXPECT_NEAR(donnees.observe.largeur, 2 * 125.0 / 3 + 15, 1e-9);
  EXPECT_NEAR(donnees.maximum.largeur, 2 * 250.0 / 3 + 15, 1e-9);
  EXPECT_NEAR(AgrandissementGraphe2(donnees), (500.0 / 3 + 15) / 135, 1e-9);
  EXPECT_EQ(AgrandissementGraphe2(PreparerGraphe2(Retenu(essai::MatriceDe({{3, 7}})))), 1);
}

TEST(Graphe2, ListeEtBornes) {
  TableauRetenu retenu = TableauSimple();
  retenu.intitulesLignes[2] = "Femmes";
  EtatGraphe2 etat = NouveauGraphe2(PreparerGraphe2(retenu));
  std::vector<std::string> textes;
  for (const EntreeGraphe2& entree : etat.entrees) textes.push_back(entree.texte);
  EXPECT_EQ(textes, (std::vector<std::string>{"Sexe et AGE", "Echelle=", "SEX1", "SEX2", "AGE1", "AGE3", "Femmes"}));
  EXPECT_EQ(TexteEchelle(etat), "Echelle=10 ");
  retenu.ordrePem = true;
  EXPECT_EQ(TexteEchelle(NouveauGraphe2(PreparerGraphe2(retenu))), "Echelle=10 PEM=50.0% ");
  ChangerValeur(etat, true);
  EXPECT_EQ(etat.valeurEchelle, 20);
  for (int k = 0; k < 9; ++k) ChangerValeur(etat, false);
  EXPECT_EQ(etat.valeurEchelle, 1);
  for (int k = 0; k < 99; ++k) ChangerEchelle(etat, false);
  EXPECT_GT(DessinerGraphe2(etat).Largeur(), 0);
}

std::vector<FormeDessinee> FormesDuCalque(const Dessin& dessin, std::string_view nom, GenreForme genre) {
  std::vector<FormeDessinee> formes;
  for (const FormeDessinee& forme : dessin.Formes())
    if (dessin.Calques()[forme.calque].nom == nom && forme.genre == genre) formes.push_back(forme);
  return formes;
}

// Each band marks every non-empty row in every non-empty column at its deviation from the line of the margin, to one
// scale, even where the table does not deviate.
TEST(Graphe2, UneMarqueParCase) {
  for (const Matrice& effectifs : {essai::MatriceDe({{0, 0, 0}, {0, 30, 10}, {0, 20, 40}}),
                                   essai::MatriceDe({{0, 0, 0}, {0, 10, 20}, {0, 20, 40}})}) {
    const EtatGraphe2 etat = NouveauGraphe2(PreparerGraphe2(Retenu(effectifs)));
    const Dessin dessin = DessinerGraphe2(etat);
    const std::vector<FormeDessinee> marques = FormesDuCalque(dessin, "marques", GenreForme::Cercle);
    const std::vector<FormeDessinee> marges = FormesDuCalque(dessin, "colonnes", GenreForme::Ligne);
    ASSERT_EQ(marques.size(), 8U);
    ASSERT_EQ(marges.size(), 4U);
    const double unite = (dessin.SurPage(marges[1]).x - dessin.SurPage(marges[0]).x) /
                         (kEcartementGraphe2 + etat.donnees.maximum.plusGrands[0] - etat.donnees.maximum.plusPetits[1]);
    for (std::size_t bande = 0; bande < 2; ++bande) {
      const Matrice& ecarts = bande == 0 ? etat.donnees.observe.ecarts : etat.donnees.maximum.ecarts;
      for (std::size_t i = 0; i < 2; ++i)
        for (std::size_t j = 0; j < 2; ++j)
          EXPECT_NEAR(dessin.SurPage(marques[bande * 4 + i * 2 + j]).x - dessin.SurPage(marges[bande * 2 + j]).x,
                      ecarts(i, j) * unite, 1e-6);
    }
  }
}

// Long labels are folded, then cut, and nothing is written beyond the page, nor over the label of a neighbour.
TEST(Graphe2, TextesLongsDansLaPage) {
  Matrice effectifs(4, 13);
  for (std::size_t i = 1; i < 4; ++i)
    for (std::size_t j = 1; j < 13; ++j) effectifs(i, j) = static_cast<double>(1 + (i * 5 + j * 3) % 7);
  TableauRetenu retenu = Retenu(effectifs);
  retenu.ligne.intitule = std::string(60, 'A') + " quelle est votre profession, ou la derni\xE8re ?";
  for (std::string& intitule : retenu.intitulesLignes) intitule = "Profession de la personne de qui depend le menage";
  for (std::string& intitule : retenu.intitulesColonnes) intitule = "Anticonstitutionnellement parlant, une fois";
  EtatGraphe2 etat = NouveauGraphe2(PreparerGraphe2(retenu));
  etat.valeurEchelle = 100;
  for (const double echelle : {0.3, 1.0, 4.0}) {
    etat.echelle = echelle;
    const Dessin dessin = DessinerGraphe2(etat);
    for (const FormeDessinee& forme : dessin.Formes()) {
      if (forme.genre != GenreForme::Texte) continue;
      const Zone zone = dessin.Etendue(forme);
      EXPECT_GE(zone.x, 0) << forme.texte;
      EXPECT_LE(zone.x + zone.largeur, dessin.Largeur()) << forme.texte;
    }
    const std::vector<FormeDessinee> tetes = FormesDuCalque(dessin, "colonnes", GenreForme::Texte);
    EXPECT_GT(tetes.size(), 24U);
    for (std::size_t k = 0; k < tetes.size(); ++k) {
      for (std::size_t m = k + 1; m < tetes.size(); ++m) {
        if (tetes[k].id == tetes[m].id && tetes[k].id >= 0) continue;
        EXPECT_FALSE(dessin.Etendue(tetes[k]).Touche(dessin.Etendue(tetes[m])));
      }
    }
  }
}

// Names of a large table lie over no bar, no other name, and inside the page; moving an entry moves its texts only.
TEST(Graphe2, NomsQuiNeSeChevauchentPas) {
  Matrice effectifs(13, 9);
  for (std::size_t i = 1; i < 13; ++i)
    for (std::size_t j = 1; j < 9; ++j)
      effectifs(i, j) = static_cast<double>((i * 7 + j * 11) % 13 + (i == j ? 40 : 1));
  EtatGraphe2 etat = NouveauGraphe2(PreparerGraphe2(Retenu(effectifs, true)));
  const Dessin dessin = DessinerGraphe2(etat);
  const std::vector<FormeDessinee> noms = FormesDuCalque(dessin, "noms", GenreForme::Texte);
  const std::vector<FormeDessinee> barres = FormesDuCalque(dessin, "marques", GenreForme::Polygone);
  EXPECT_GT(noms.size(), 150U);  // of 192: where there is room
  for (std::size_t k = 0; k < noms.size(); ++k) {
    const Zone zone = dessin.Etendue(noms[k]);
    EXPECT_GE(zone.x, 0);
    EXPECT_LE(zone.x + zone.largeur, dessin.Largeur());
    for (std::size_t m = k + 1; m < noms.size(); ++m) EXPECT_FALSE(zone.Touche(dessin.Etendue(noms[m])));
    for (const FormeDessinee& barre : barres) EXPECT_FALSE(zone.Touche(dessin.Etendue(barre)));
  }

  etat.choisie = 4;
  DeplacerEntree(etat, {12, -3});
  const Dessin deplace = DessinerGraphe2(etat);
  ASSERT_EQ(deplace.Formes().size(), dessin.Formes().size());
  for (std::size_t k = 0; k < deplace.Formes().size(); ++k) {
    const FormeDessinee& forme = deplace.Formes()[k];
    if (forme.nombre == 0) continue;
    const bool sien = forme.id == 4 && forme.genre == GenreForme::Texte;
    EXPECT_NEAR(deplace.SurPage(forme).x - dessin.SurPage(dessin.Formes()[k]).x, sien ? 12 : 0, 1e-9);
  }
}

}  // namespace
}  // namespace quelvar
