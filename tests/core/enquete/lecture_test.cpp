// The readers of the survey's own files: .POS, .DAT, .DES, .MOD, .BRT, .CDG and the parameter line.
#include <gtest/gtest.h>

#include <random>

#include "core/enquete/brtfile.h"
#include "core/enquete/datfile.h"
#include "core/enquete/desfile.h"
#include "core/enquete/modfile.h"
#include "core/enquete/parametres.h"
#include "core/enquete/posfile.h"
#include "support/environnement.h"
#include "support/erreur.h"

namespace quelvar {
namespace {

class FichiersDEnquete : public ::testing::Test {
 protected:
  Chemin Ecrire(const std::string& nom, std::string_view octets) {
    essai::EcrireOctets(dossier_.Chemin() / nom, octets);
    return dossier_.Chemin() / nom;
  }

 private:
  essai::DossierTemporaire dossier_;
};

TEST(LigneTaille, CountsAndParentheses) {
  const struct {
    std::string_view ligne;
    std::int64_t individus, avant;
    bool fautives;
  } cas[] = {{" 300 ", 300, 0, false},
             {"1 000 INCL SEX=1", 1000, 0, false},
             {" 1000 ( 100 ) POND", 1000, 100, false},
             {"", 0, 0, false},
             {"abc", 0, 0, false},
             {" 12 ( 4", 0, 0, true},
             {" 12 ) 4 (", 0, 0, true},
             {"5000000000", 5000000000, 0, false}};
  for (const auto& [ligne, individus, avant, fautives] : cas) {
    const LigneTaille taille = LireLigneTaille(ligne);
    EXPECT_EQ(taille.individus, individus) << ligne;
    EXPECT_EQ(taille.avantPonderation, avant) << ligne;
    EXPECT_EQ(taille.parenthesesFautives, fautives) << ligne;
  }
}

TEST(LigneQuestion, FixedColumnsAndFreeArea) {
  const Question sexe = LireLigneQuestion("SEX  12 2 1-2=1 $Sexe de l'enquêté$ &ACT& /R=0"_w);
  EXPECT_EQ(sexe.nom, "SEX");
  EXPECT_EQ(sexe.position, 12);
  EXPECT_EQ(sexe.codeMax, 2);
  EXPECT_EQ(sexe.largeur, 1);
  EXPECT_EQ(sexe.intitule, "Sexe de l'enquêté"_w);
  EXPECT_EQ(sexe.statut, Statut::Actif);
  EXPECT_EQ(sexe.regle, "1-2=1   /R=0");
  EXPECT_FALSE(sexe.alphabetique);

  const Question nom = LireLigneQuestion("NOM  2014a&SUP&");
  EXPECT_TRUE(nom.alphabetique);
  EXPECT_EQ(nom.statut, Statut::Supplementaire);
  EXPECT_EQ(nom.largeur, 2);

  const Question collee = LireLigneQuestion("AAA   1 2$Age$1=2&ACT&");
  EXPECT_EQ(collee.intitule + "|" + collee.regle + "|" + collee.type, "Age|1=2| ") << "a label from column 10 on";
  EXPECT_EQ(collee.statut, Statut::Actif);
  EXPECT_TRUE(LireLigneQuestion("AAA   1 2 $sans fin").intituleOuvert);
  EXPECT_EQ(LireLigneQuestion("AAA   1 2 $$").intitule, "");
  EXPECT_EQ(LireLigneQuestion("AAA   1L3").codeMax, 999);
  EXPECT_EQ(LireLigneQuestion("AAA   1l3").largeur, 3);
  EXPECT_EQ(LireLigneQuestion("AAA   199").largeur, 2);
  EXPECT_EQ(LireLigneQuestion("AAA").position, 0);
}

TEST_F(FichiersDEnquete, TheListOfQuestionsEndsAtItsMark) {
  const struct {
    std::string_view marque;
    FinDeListe fin;
  } cas[] = {{"   ", FinDeListe::LigneBlanche},
             {"", FinDeListe::LigneBlanche},
             {"** suite", FinDeListe::Asterisques},
             {"$$VIT", FinDeListe::Dollars},
             {"A**", FinDeListe::Asterisques}};
  for (const auto& [marque, fin] : cas) {
    const FichierPos pos =
        LirePos(Ecrire("E.POS", Joindre({"T\r\n 3 \r\nAAA   1 2\r\nBBB   2 3\r\n", marque, "\r\nCCC   3 2\r\n"})));
    EXPECT_EQ(pos.questions.size(), 2U) << marque;
    EXPECT_EQ(pos.fin, fin) << marque;
    EXPECT_EQ(pos.premiereApres, 4U);
    EXPECT_EQ(pos.lignes.size(), 6U);
  }
  EXPECT_EQ(LirePos(Ecrire("E.POS", "T\n3\nAAA   1 2")).fin, FinDeListe::FinDeFichier);
}

TEST(CodeCaractere, ThreeRanges) {
  EXPECT_EQ(CodeCaractere(0), "0");
  EXPECT_EQ(CodeCaractere(9), "9");
  EXPECT_EQ(CodeCaractere(10), "A");
  EXPECT_EQ(CodeCaractere(35), "Z");
  EXPECT_EQ(CodeCaractere(36), "36");
  EXPECT_EQ(CodeCaractere(99), "99");
  EXPECT_THROW(CodeCaractere(100), Erreur);
}

TEST(Champs, FastReadingAgreesWithTheLenientOne) {
  for (unsigned i = 0; i < 65536; ++i) {
    const std::string octets = {static_cast<char>(i & 0xFF), static_cast<char>(i >> 8)};
    ASSERT_EQ(LireChampInterieur(octets.data(), {0, 2}), ConvertirChamp(octets, {0, 2})) << i;
    ASSERT_EQ(ValeursDeDeuxOctets()[i], ConvertirChamp(octets, {0, 2})) << i;
    ASSERT_EQ(LireChampInterieur(octets.data(), {1, 1}), ConvertirChamp(octets.substr(1), {1, 1})) << i;
    ASSERT_EQ(ValeursDUnOctet()[i >> 8], ConvertirChamp(octets.substr(1), {1, 1})) << i;
  }
  const std::string alphabet = "0129 .,-+ED\tx";
  for (const char a : alphabet)
    for (const char b : alphabet)
      for (const char c : alphabet) {
        const std::string octets = {a, b, c};
        int attendu = 0;
        bool leve = false;
        try {
          attendu = ConvertirChamp(octets, {0, 3});
        } catch (const Erreur&) {
          leve = true;
        }
        if (leve) EXPECT_THROW(LireChampInterieur(octets.data(), {0, 3}), Erreur) << octets;
        else EXPECT_EQ(LireChampInterieur(octets.data(), {0, 3}), attendu) << octets;
      }
  EXPECT_THROW(ConvertirChamp("9E9", {0, 3}), Erreur);
}

TEST_F(FichiersDEnquete, ShortLinesAreCompletedByBlanks) {
  LecteurIndividus lecteur(Ecrire("E.DAT", "12345\n1\n\n123"), 3);
  const std::string_view attendus[] = {"123", "1  ", "   ", "123"};
  for (const std::string_view attendu : attendus) EXPECT_EQ(std::string_view(lecteur.Lire(), 3), attendu);
  EXPECT_EQ(lecteur.Lire(), nullptr);
}

constexpr std::string_view kMod = "ENQ.MOD";

TEST(Parametres, KeywordsByTwoLetters) {
  const ParametresMod espaces = LireParametres(" BRT = 12 , FMT = 3 ", kMod);
  EXPECT_EQ(espaces.burt, 12);
  EXPECT_EQ(espaces.largeur, 3);
  const ParametresMod synonymes = LireParametres("imax=30;JMAX=4/isup=2:JS=1 lr=6 burt=1 de=3 cdg=1", kMod);
  EXPECT_EQ(synonymes.lignes, 30);
  EXPECT_EQ(synonymes.colonnes, 4);
  EXPECT_EQ(synonymes.lignesSup, 2);
  EXPECT_EQ(synonymes.colonnesSup, 1);
  EXPECT_EQ(synonymes.largeur, 6);
  EXPECT_EQ(synonymes.burt, 1);
  EXPECT_EQ(synonymes.de, 3);
  EXPECT_EQ(synonymes.cdg, 1);
  EXPECT_EQ(LireParametres("LSUP=4", kMod).lignesSup, LireParametres("ISUP=4", kMod).lignesSup);
  EXPECT_EQ(LireParametres("FMT=3 LA=5", kMod).largeur, 5) << "the last one wins";
  EXPECT_EQ(LireParametres("NBR=7", kMod).burt, 7) << "a code counts anywhere in the key";
  EXPECT_EQ(LireParametres("DECIMALES=3", kMod).lignes, 3) << "IM stands before DE in the list";
  EXPECT_EQ(LireParametres("FMT=x", kMod).largeur, 0);
  const ParametresMod mod = LireParametres("MOD=SEX1", kMod);
  EXPECT_TRUE(mod.modPresent);
  EXPECT_EQ(mod.mod, "SEX1");
  EXPECT_THROW(LireParametres("FMT=40000", kMod), Erreur);
}

TEST_F(FichiersDEnquete, AMissingEqualSignUnsetsEverything) {
  const ParametresMod parametres = LireParametres("BRT=3 FMT=5.0", kMod);
  EXPECT_EQ(parametres.burt, 0);
  EXPECT_EQ(parametres.remarques, std::vector<std::string>{"Arret : manque signe = dans ligne 2 de *.MOD"});
}

TEST_F(FichiersDEnquete, ModalitiesUpToTheMark) {
  const FichierMod mod = LireMod(Ecrire("E.MOD", "ENQ\n BRT=3 \nSEX1   Homme\nA  Sx libellé\nSX\n**\nOLD1   ancien\n"));
  ASSERT_EQ(mod.modalites.size(), 3U);
  EXPECT_EQ(mod.modalites[0].intitule, "Homme");
  EXPECT_FALSE(mod.modalites[0].supplementaire);
  EXPECT_EQ(mod.modalites[1].nom, "A  S");
  EXPECT_EQ(mod.modalites[2].nom, "SX  ");
  EXPECT_EQ(mod.modalites[2].intitule, "");
  EXPECT_EQ(mod.premiereApres, 5U);
  EXPECT_TRUE(LireLigneModalite("SEX2 s Femme").supplementaire);
  EXPECT_EQ(LigneModalite("A1", true, std::string(30, 'x')), "A1   S " + std::string(25, 'x'));
}

TEST_F(FichiersDEnquete, TableRowsKeepTouchingCells) {
  {
    Ecrivain fichier(Ecrire("E.BRT", ""));
    EcrireLigneBrt(fichier, "SEX1", std::vector<std::int64_t>{120, 7, 345}, 3, "Homme");
    fichier.Fermer();
  }
  LecteurLignes lecteur(Ecrire("F", "SEX1120  7345  Homme  \r\n"));
  LigneBrt ligne;
  LireLigneBrt(lecteur.LireObligatoire(), 3, 3, ligne);
  EXPECT_EQ(ligne.nom, "SEX1");
  EXPECT_EQ(ligne.cellules, (std::vector<double>{120, 7, 345}));
  EXPECT_EQ(ligne.intitule, "Homme");
}

TEST(ControleDeBurt, ATableOfOtherModalitiesIsRefused) {
  struct Cas {
    std::vector<std::string> lignes;
    int numero;
  };
  const std::vector<std::string> noms = {"AAA1", "AAA2"};
  for (const Cas& c :
       {Cas{{"AAA1 3 0", "AAA2 0 4"}, 0}, Cas{{"     3 0", "AAA2 0 4 long"}, 0}, Cas{{"AAA1 3", "AAA2 0 4"}, 0},
        Cas{{"AAA1 3 0", "BBB1 0 4"}, kIncompatibiliteType}, Cas{{"AAA130", "AAA204"}, kIncompatibiliteType},
        Cas{{"AAA1  3  0", "AAA2  0  4"}, kIncompatibiliteType},
        // Two more cells in every row, with a label behind them; and labels that begin with a number.
        Cas{{"AAA1 3 0 7 2 long", "AAA2 0 4 012 label"}, kIncompatibiliteType},
        Cas{{"AAA1 3 018 a 30 ans", "AAA2 0 430 et plus"}, 0}}) {
    const Chemin brt = "ENQ.BRT";
    ControleDeBurt controle(brt, 2, 2);
    EXPECT_EQ(essai::NumeroLeve([&] {
                for (std::size_t i = 0; i < c.lignes.size(); ++i) controle.Voir(c.lignes[i], noms[i]);
                controle.Conclure();
              }),
              c.numero)
        << c.lignes.back();
  }
}

TEST_F(FichiersDEnquete, DescriptorWithItsFaults) {
  Descripteur descripteur = LireDes(Ecrire("E.DES",
                                           "SEXE    2 \n"
                                           "AGE    99 \n"
                                           "NOM    25A\n"
                                           "CP      5n NUM TAB\n"
                                           "OPI     3 Si =2+4\n"
                                           "OP2     3 SI 2+4\n"
                                           "OP3     3 si <2\n"
                                           "OP4     3 si >2+x\n"
                                           "NUL     0 \n"
                                           "    fin\nXXX     1 \n\nYYY     1 \n**\nZZZ     1 \n"));
  ASSERT_EQ(descripteur.descriptions.size(), 9U);
  EXPECT_EQ(descripteur.descriptions[2].nombre, 20);
  EXPECT_TRUE(descripteur.descriptions[3].alphabetique) << "any sign in column 10";
  EXPECT_TRUE(descripteur.descriptions[3].numerique);
  EXPECT_TRUE(descripteur.descriptions[3].tabulation);
  ASSERT_TRUE(descripteur.descriptions[4].saut.has_value());
  EXPECT_EQ(descripteur.descriptions[4].saut->signe, '=');
  EXPECT_EQ(descripteur.descriptions[4].saut->valeur, "2");
  EXPECT_EQ(descripteur.descriptions[4].saut->nombre, 4);
  EXPECT_EQ(
      TexteDesFautes(descripteur),
      "*** Attention un code alpha plus grand que 20 ramené à 20 à la question  Question NOM    \r\n"
      "*** Pas de < ou = ou >, test abandonné Question OP2    \r\n"
      "*** Pas de signe plus dans le saut, test abandonné Question OP3    \r\n"
      "*** Pas de valeur dans le saut, test abandonné Question OP4    \r\n"
      "*** Attention un code numérique a comme code-max 0 à la question  Question NUL    \r\n"
      "*** Attention la ligne 10 du descripteur n'a pas de nom et arrête la liste ; lignes non lues derrière elle : "
      "2, la première Question XXX    "_w);
  EXPECT_EQ(descripteur.nombreFautes, 6);
  EXPECT_EQ(descripteur.LongueurEnregistrement(), 1 + 2 + 20 + 5 + 1 + 1 + 1 + 1 + 1);
  VerifierLongueur(descripteur, 33);
  EXPECT_EQ(descripteur.nombreFautes, 6);
  VerifierLongueur(descripteur, 2);
  EXPECT_EQ(descripteur.nombreFautes, 16);
  EXPECT_TRUE(descripteur.fautes.back().ends_with("est de 2")) << "no question is to blame";
  EXPECT_EQ(LigneDescription("CP", 5, GenreDescription::NumeriqueLongue), "CP      5A NUM");
  EXPECT_EQ(LigneDescription("NOM", 10, GenreDescription::Alphabetique), "NOM    10A    ");
  const auto codeMax = [](int nombre, bool alpha) { return CodeMaxGenere({"", nombre, alpha, false, false, {}, ""}); };
  EXPECT_EQ(codeMax(0, true), " 0A");
  EXPECT_EQ(codeMax(1, true), " 9");
  EXPECT_EQ(codeMax(2, true), "99");
  EXPECT_EQ(codeMax(3, true), "L3");
  EXPECT_EQ(codeMax(10, true), "10A");
  EXPECT_EQ(codeMax(7, false), " 7");
  EXPECT_EQ(codeMax(100, false), "L3");
}

}  // namespace
}  // namespace quelvar
