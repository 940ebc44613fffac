#include <gtest/gtest.h>

#include <array>

#include "core/resultats/fichiers.h"
#include "core/resultats/largeurfixe.h"
#include "core/resultats/rangees.h"
#include "core/resultats/tete.h"
#include "support/environnement.h"

namespace quelvar {
namespace {

// A total and one column a count.
TableauEdite Effectifs(double total, const std::vector<double>& effectifs) {
  TableauEdite tableau;
  tableau.colonnes = {{"Tot."}};
  tableau.rangees = {{"Effectif", {}, {{total, Unite::Effectif}}}};
  for (const double effectif : effectifs) {
    tableau.colonnes.push_back({"c"});
    tableau.rangees[0].cellules.push_back({effectif, Unite::Effectif});
  }
  return tableau;
}

TEST(LargeurFixe, WidthsAreMinima) {
  struct Cas {
    double total;
    std::vector<double> effectifs;
    int tete, page;
    std::vector<int> colonnes;
  };
  const std::vector<Cas> cas = {
      {9999, {0, 9999}, 4, 75, {5, 5}},
      {10000, {5000, 5000}, 5, 74, {5, 5}},
      {120000, {1, 9999, 10000, 100000}, 6, 73, {5, 5, 6, 7}},
      {1234567, {9999.4, 1224568}, 7, 72, {5, 8}},
      {9999.6, {9999.6}, 5, 74, {6}},  // as it is printed
  };
  for (const Cas& un : cas) {
    const LargeursFixes largeurs = Mesurer(Effectifs(un.total, un.effectifs));
    EXPECT_EQ(largeurs.tete, un.tete);
    EXPECT_EQ(largeurs.page, un.page);
    EXPECT_EQ(largeurs.colonnes, un.colonnes);
  }
}

TEST(LargeurFixe, BlocksHoldWhatThePageHolds) {
  const auto blocs = [](std::vector<int> colonnes) {
    std::vector<std::size_t> fins;
    for (const BlocDeColonnes& bloc : DecouperEnBlocs({4, 75, std::move(colonnes)})) fins.push_back(bloc.fin);
    return fins;
  };
  EXPECT_EQ(blocs(std::vector<int>(41, 5)), (std::vector<std::size_t>{15, 30, 41}));
  EXPECT_EQ(blocs({30, 45, 5, 5, 91, 5}), (std::vector<std::size_t>{2, 4, 5, 6})) << "one too wide stands alone";
  EXPECT_TRUE(blocs({}).empty());
}

std::string Imprimer(const TableauEdite& tableau, const FormeEnRangees& forme) {
  const essai::DossierTemporaire dossier;
  const Chemin chemin = dossier.Chemin() / "R.PRT";
  Rapport rapport(chemin);
  ImprimerRangees(rapport, tableau, forme);
  rapport.Achever();
  rapport.Valider();
  return LireOctets(chemin);
}

TEST(LargeurFixe, ColumnsThatWidenTogether) {
  TableauEdite tableau;
  tableau.colonnes = {{"N"}, {"A"}, {"B"}};
  constexpr int kUsuelles = 11;  // eight digits, the point, two decimals
  tableau.rangees = {{"a", {}, {{1e12}, {1234567.25, Unite::Nombre, 2}, {}}}};
  EXPECT_EQ(ColonnesEnPlus(tableau, 1, 3, kUsuelles), 0);
  tableau.rangees.push_back({"b", {}, {{1.0}, {12345678.25, Unite::Nombre, 2}, {}}});
  EXPECT_EQ(ColonnesEnPlus(tableau, 1, 3, kUsuelles), 1);
  tableau.rangees.push_back({"c", {}, {{1.0}, {}, {-123456789.5, Unite::Nombre, 2}}});
  EXPECT_EQ(ColonnesEnPlus(tableau, 1, 3, kUsuelles), 3);
  EXPECT_EQ(ColonnesEnPlus(tableau, 1, 2, kUsuelles), 1);
}

TEST(Rangees, TitlesToTheRightOfTheirPlaces) {
  const FormeEnRangees forme{.places = {{"", 7}, {"!", 5}}};
  EXPECT_EQ(TeteADroite("ACT.", {{"F=1"}, {"COS2"}}, forme, 4), "ACT.    F=1! COS2");
  EXPECT_EQ(TeteADroite("SUP.", {{"F=100"}, {"CPF"}}, forme, 4), "SUP.   F=100!  CPF");
}

TEST(Rangees, HeadingsOfTwoLinesEmptyRowsAndRowsSideBySide) {
  TableauEdite tableau;
  tableau.coin = "Nom";
  tableau.colonnes = {{"Position"}, {"Code-max Ancien"}, {"Code-max Nouv."}, {"Fin"}, {"Sens"}};
  tableau.rangees = {
      {"A", "ns", {{123456.0}, {1.0}, {2.0}, {3.0}, {4.0}}}, {}, {"B", "**", {{1.0}, {2.0}, {3.0}, {4.0}, {5.0}}}};
  constexpr int kFin = 30;
  EXPECT_EQ(Imprimer(tableau, {.titre = 4,
                               .places = {{"", 5, Elargissement::DerriereUnTexte}, {"", 5}},
                               .intitule = 4,
                               .tete = {.coin = EnBas(0),
                                        .noms = {SurLesDeux(4, 4, 5), SurLesDeux(10, 9, 8), SurLesDeux(10, 16, 8),
                                                 EnHaut(20), SurLesDeux(kHorsDeLaLigne, 25, 2)},
                                        .colonnes = {kFin, 0}}}),
            "     Posi- Code-max  Fin       \r\n"
            "Nom  tion Ancien Nouv.    Sens\r\n"
            "A   123456    1    2    3    4  ns\r\n"
            "\r\n"
            "B        1    2    3    4    5  **\r\n");
  // Names that stay where they are, and one that is left out.
  const std::string_view noms[] = {"Effet", "Remarque", "Erreur type"};
  const std::array<std::string, kLignesDeTete> tete =
      TeteADeuxLignes("Effets nets", noms, std::array{2, 0, 1},
                      {.coin = SurLesDeux(2, 0, 8), .noms = {EnHaut(10), {}, SurLesDeux(16, 17, 6)}, .fixe = true});
  EXPECT_EQ(tete[0], "  Effets  Effet Erreur");
  EXPECT_EQ(tete[1], "nets             type");
  tableau = {};
  tableau.colonnes = {{}};
  for (const double frequence : {5.0, 12345.0, 7.0})
    tableau.rangees.push_back({{}, "mot", {{frequence, Unite::Effectif}}});
  EXPECT_EQ(
      Imprimer(tableau, {.places = {{"", 4, Elargissement::DerriereUnNombre}}, .avantIntitule = " ", .parLigne = 2}),
      "     5 mot 12345 mot\r\n"
      "     7 mot\r\n");
}

TEST(Rangees, ColumnsWidenWithTheirHeadingsOrShiftOneRow) {
  TableauEdite tableau;
  tableau.titres = {"Effets"};
  tableau.coin = "Nom ";
  tableau.colonnes = {{" Effet"}, {" Poids"}, {" Note"}, {" Rang"}, {" Fin"}};
  tableau.rangees = {{"AAAAA", "long", {{1.25, Unite::Nombre, 1, "*"}, {7.0}, {{}, {}, 0, "abcd"}, {12.0}, {3.0}}},
                     {"B", {}, {{-12345.0, Unite::Nombre, 1}, {123456.0}, {{}, {}, 0, ""}, {123456.0}, {123456.0}}}};
  const FormeEnRangees forme{.titre = 4,
                             .places = {{"|", 4, Elargissement::DerriereUnTexte},
                                        {"", 5, Elargissement::DerriereUnNombre},
                                        {" ", 2},
                                        {"", 4, Elargissement::Entier},
                                        {"", 4}},
                             .avantIntitule = "; "};
  EXPECT_EQ(Imprimer(tableau, forme),
            "Effets\r\n"
            "Nom    Effet   Poids Note Rang Fin\r\n"
            "AAAA|     1.2*      7 ab  12   3; long\r\n"
            "B   |-12345.0 123456   123456$123456; \r\n");
}

TEST(Rangees, HeadingsFollowTheirPlacesAndListsHaveAPlaceARow) {
  TableauEdite tableau;
  tableau.coin = " COL:";
  tableau.colonnes = {{"SEX"}, {"Label"}, {"Label"}};
  tableau.rangees = {{"SEX1 ", {}, {{1234567.0}, {1.0}, {2.0, Unite::Nombre, 1}}}};
  const FormeEnRangees forme{
      .places = {{.entiers = 5, .enPlus = 3, .avantTitre = " ", .derriereTitre = " "},
                 {.avant = " ", .entiers = 3, .titre = TitreDeColonne::AGauche},
                 {.avant = "  ", .entiers = 5, .titre = TitreDeColonne::ADroite, .colonnesDuTitre = 7}}};
  const essai::DossierTemporaire dossier;
  const Chemin chemin = dossier.Chemin() / "R.PRT";
  Rapport rapport(chemin);
  ImprimerRangees(rapport, tableau, forme);
  const std::vector<Rangee> liste = {{"Khi-deux = ", " !", {{12.25, Unite::Nombre, 1}}}, {"p = ", {}, {{0.5}}}};
  ImprimerListe(rapport, liste, {{.entiers = 4}, {.avant = "<", .entiers = 2}});
  rapport.Achever();
  rapport.Valider();
  EXPECT_EQ(LireOctets(chemin),
            " COL:    SEX Lab  Label\r\n"
            "SEX1  1234567   1      2.0\r\n"
            "Khi-deux =   12.2 !\r\n"
            "p = < 0\r\n");
}

// Two rows and two columns of a crosstab with their margins, and the eigenvalues of a table.
std::vector<TableauEdite> Exemples() {
  TableauEdite croisement;
  croisement.titres = {"Sexe & vote ", "Pourcentages"};
  croisement.coin = "SEX";
  croisement.colonnes = {{"VOT1", "Oui; \"net\""}, {"TOT"}};
  croisement.rangees = {{"SEX1", "\xC9t\xE9", {{2.0, Unite::Effectif}, {1234.5, Unite::Effectif}}},
                        {"TOT", {}, {{40.25, Unite::Pourcent, 1, "+"}, {}}}};
  TableauEdite valeurs;
  valeurs.coin = "Facteur";
  valeurs.colonnes = {{"Valeur propre"}};
  valeurs.rangees = {{"1", {}, {{0.5625, Unite::Nombre, 6}}}, {"2", {}, {{-0.0625, Unite::Nombre, 6, "<"}}}};
  return {croisement, valeurs};
}

TEST(TableauxEnFichiers, EachDriverWritesItsBytes) {
  const std::vector<TableauEdite> tableaux = Exemples();
  EXPECT_EQ(TexteSepare(tableaux, SortieDeTableaux::Tsv),
            "Sexe & vote\r\nPourcentages\r\n"
            "SEX\t\"VOT1 Oui; \"\"net\"\"\"\tTOT\r\n"
            "SEX1 \xC3\x89t\xC3\xA9\t2\t1234\r\n"
            "TOT\t40.2 +\t\r\n"
            "\r\n"
            "Facteur\tValeur propre\r\n1\t0.562500\r\n2\t-0.062500 <\r\n");
  EXPECT_EQ(TexteSepare(tableaux, SortieDeTableaux::Csv),
            "\xEF\xBB\xBFSexe & vote\r\nPourcentages\r\n"
            "SEX;\"VOT1 Oui; \"\"net\"\"\";TOT\r\n"
            "SEX1 \xC3\x89t\xC3\xA9;2;1234\r\n"
            "TOT;40,2 +;\r\n"
            "\r\n"
            "Facteur;Valeur propre\r\n1;0,562500\r\n2;-0,062500 <\r\n");
  const std::string page = PageHtml("ENQ.TAP", tableaux);
  EXPECT_NE(page.find("<caption>Sexe &amp; vote<br>Pourcentages</caption>\n"
                      "<tr><th>SEX</th><th>VOT1 Oui; \"net\"</th><th>TOT</th></tr>\n"
                      "<tr><th>SEX1 \xC3\x89t\xC3\xA9</th><td>2</td><td>1234</td></tr>\n"
                      "<tr><th>TOT</th><td>40.2 % +</td><td></td></tr>\n</table>\n"
                      "<table>\n<tr><th>Facteur</th><th>Valeur propre</th></tr>\n"
                      "<tr><th>1</th><td>0.562500</td></tr>\n<tr><th>2</th><td>-0.062500 &lt;</td></tr>\n</table>\n"
                      "</body>\n</html>\n"),
            std::string::npos)
      << page;
  EXPECT_NE(page.find("<title>ENQ.TAP</title>"), std::string::npos);
}

}  // namespace
}  // namespace quelvar
