#include "factor/profil/profil.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "core/chiffres/nombres.h"
#include "core/enquete/listemod.h"
#include "core/enquete/parametres.h"
#include "crosstab/tableau/khi2.h"
#include "factor/profil/choix.h"
#include "factor/profil/dessin.h"
#include "factor/profil/edition.h"
#include "factor/profil/profilmod.h"
#include "support/erreur.h"
#include "support/programme.h"

namespace quelvar {

using namespace quelvar::factor;

namespace {

TEST(Attirer, GivesTheFiguresWorkedOutByHand) {
  struct Cas {
    Rencontre rencontre;
    double theorique, khi2;
    int pem, classe;
  };
  const Cas cas[] = {
      {{100, 40, 30, 30}, 12, 64.2857142857, 100, 3},   // all who have the one have the other: 100*(30*60-0*10)^2/(...)
      {{100, 40, 30, 12}, 12, 0, 0, 0},                 // independence
      {{100, 40, 30, 0}, 12, 28.5714285714, -100, 3},   // never together, which the margins allow
      {{100, 80, 70, 50}, 56, 10.7142857143, -100, 3},  // never fewer than 50 together
      {{20, 5, 4, 2}, 1, 0.4166666667, 33, 0},          // expected counts below 5: |2*13-3*2| - 10 = 10
      {{20, 5, 4, 1}, 1, 0, 0, 0},
      {{10, 10, 4, 4}, 4, 0, 0, 0},  // everybody has the one: a margin is empty
  };
  for (const Cas& c : cas) {
    const Attraction a = Attirer(c.rencontre);
    EXPECT_DOUBLE_EQ(a.theorique, c.theorique);
    EXPECT_DOUBLE_EQ(a.ecart, c.rencontre.ensemble - c.theorique);
    EXPECT_NEAR(a.khi2, c.khi2, 1e-9);
    EXPECT_EQ(a.pem, c.pem);
    EXPECT_EQ(crosstab::ClasseKhi2(a.khi2, crosstab::Borne::Comprise), c.classe);
  }
  EXPECT_EQ(essai::NumeroLeve([] { Attirer({0, 0, 0, 0}); }), kDivisionParZero);
  EXPECT_EQ(essai::NumeroLeve([] { Attirer({10, 4, 4, 6}); }), 0);  // more than the margins allow: beyond 100 %
  EXPECT_EQ(essai::NumeroLeve([] { Attirer({10, 5, 0, -1}); }), kDivisionParZero);
}

TEST(Choix, NamesComeBackWholeFromTheLine) {
  const std::vector<std::vector<std::string>> listes = {{"AGE1"}, {"A  1", "AB  ", " C 2"}, {"SEX1", "SEX2", "AGE3"}};
  for (const auto& noms : listes) {
    ASSERT_EQ(RefusDuChoix(noms), "");
    const std::string ligne = LigneDuChoix(" BRT=12 FMT=3 LIGN=20 LSUP=8 JSUP=-1 CDG=1 MOD=AGE9", noms, "ENQ.MOD");
    EXPECT_EQ(ligne, "LIGN=20 LSUP=8 LA=3 BRT=12  MOD=" + TexteDuChoix(noms));
    EXPECT_EQ(NomsDuChoix(LireParametres(ligne, "ENQ.MOD").mod), noms);
  }
  for (const char* refuse : {"A~1 ", "A.1 ", "A=1 ", "A/1 "}) EXPECT_NE(RefusDuChoix({refuse}), "") << refuse;
  EXPECT_EQ(RefusDuChoix({}), std::string("Aucune modalité n'a été choisie"_w));
  try {
    LigneDuChoix("FMT=40000", {"AGE1"}, "ENQ.MOD");
    ADD_FAILURE() << "a width beyond its type";
  } catch (const Erreur& erreur) {
    EXPECT_EQ(TexteDuLieu(erreur), "ENQ.MOD, ligne 2");
  }
}

TEST(Choix, MarksAreWrittenInTheirTwoFormsButTheCodingOfARegressionStays) {
  for (const auto& [lue, ecrite] : {std::pair("s  ", " S "), std::pair(" S ", " S "), std::pair(" a ", "   "),
                                    std::pair("R  ", "R  "), std::pair(" XS", " XS"), std::pair("  Y", "  Y")}) {
    std::string texte = TexteDeModalite("AGE1", lue, "jeunes");
    RendreMarque(texte);
    EXPECT_EQ(texte, TexteDeModalite("AGE1", ecrite, "jeunes"));
  }
}

TEST(DessinerProfils, BarsGoToTheSideOfTheirSignAndTheSureOnesAreFilled) {
  ProfilDeModalite profil{"AGE1", "jeunes", {}};
  for (const auto& [pem, khi2] : {std::pair(60, 7.0), std::pair(20, 1.0), std::pair(0, 0.0), std::pair(-40, 9.0)}) {
    LigneDeProfil ligne{"SEX1", "hommes", 3, {}};
    ligne.attraction.pem = pem;
    ligne.attraction.khi2 = khi2;
    profil.lignes.push_back(ligne);
  }
  const Dessin dessin = DessinerProfils({&profil, 1});
  std::vector<double> largeurs;
  std::vector<bool> pleines;
  for (const FormeDessinee& forme : dessin.Formes()) {
    if (forme.genre != GenreForme::Polygone) continue;
    const Zone zone = dessin.Etendue(forme);
    largeurs.push_back(zone.largeur);
    pleines.push_back(forme.fond.teinte > 0);
    EXPECT_EQ(zone.x + 1 > 410, profil.lignes[static_cast<std::size_t>(forme.id)].attraction.pem > 0);
  }
  ASSERT_EQ(largeurs.size(), 3U);
  EXPECT_NEAR(largeurs[0] / largeurs[1], 3, 1e-9);
  EXPECT_NEAR(largeurs[2] / largeurs[1], 2, 1e-9);
  EXPECT_EQ(pleines, (std::vector<bool>{true, false, true}));
}

TEST(ImprimerProfil, CountsNeverTouchTheirNeighbours) {
  const essai::DossierTemporaire dossier;
  for (const auto& [effectif, ligne] :
       {std::pair(2146.0, "SEX1   61 2146 *** "), std::pair(12345.0, "SEX1   61 12345 *** ")}) {
    ProfilDeModalite profil{"AGE1", "jeunes", {{"SEX1", "hommes", effectif, {1, 1, 9, 61}}}};
    const Chemin chemin = dossier.Chemin() / "r";
    Rapport rapport(chemin);
    ImprimerProfil(rapport, profil, false);
    rapport.Valider();
    EXPECT_NE(LireOctets(chemin).find(ligne), std::string::npos) << effectif;
  }
}

class RunProfil : public essai::RunDeProgramme {
 protected:
  void EcrireEnquete() const {
    Ecrire("ENQ.POS", "ENQ\r\n 3 \r\nNBA   199\r\n");
    Ecrire("ENQ.DAT", "36\r\n 1\r\n99\r\n");
  }
};

TEST_F(RunProfil, LongCodesAreReadFromTheirTwoDigits) {
  EcrireEnquete();
  Ecrire("ENQ.MOD", "ENQ\r\n BRT=3 FMT=1\r\nNB36\r\nNBA1\r\nNB99\r\n");
  std::vector<ProfilDeModalite> profils;
  OptionsProfil options;
  options.modalites = {{"NB36"}};
  ASSERT_EQ(DresserProfils(contexte_, options, profils), Fin::Normale) << montre_;
  ASSERT_EQ(profils.size(), 1U);
  for (const LigneDeProfil& ligne : profils[0].lignes) EXPECT_EQ(ligne.attraction.pem, -100) << ligne.nom;
}

// "NB36" is the code 36 of NBA or of NBB, or the code 6 of NB3: of the question that the modality before it has.
TEST_F(RunProfil, ANameThatSeveralQuestionsGiveGoesWithTheOneBeforeIt) {
  Ecrire("ENQ.POS", "ENQ\r\n 4 \r\nNBA   140\r\nNBB   340\r\nNB3   5 9\r\nSEX   6 2\r\n");
  Ecrire("ENQ.DAT", "363561\r\n36 162\r\n353611\r\n 13611\r\n");
  const auto effectifs = [&](std::string_view noms) {
    Ecrire("ENQ.MOD", Joindre({"ENQ\r\n BRT=4 FMT=1 MOD=SEX1\r\n", noms, "SEX1\r\nSEX2\r\n"}));
    std::vector<ProfilDeModalite> profils;
    OptionsProfil options;
    options.nonTri = true;
    if (DresserProfils(contexte_, options, profils) != Fin::Normale) return std::string("arrêt"_w);
    std::string texte;
    for (const LigneDeProfil& ligne : profils[0].lignes)
      texte += Joindre({ligne.nom, " ", Nombre(ligne.ensemble), " "});
    return texte;
  };
  EXPECT_EQ(effectifs("NBAZ\r\nNB36\r\nNBBZ\r\nNB36\r\nNB31\r\nNB36\r\n"),
            "NBAZ 1 NB36 1 NBBZ 1 NB36 2 NB31 2 NB36 1 SEX2 0 ");
  EXPECT_EQ(effectifs("NB36\r\nNBAZ\r\n"), "arrêt"_w);
  EXPECT_TRUE(Dit("Erreur : NB36 peut ")) << montre_;
}

TEST_F(RunProfil, ASharedNameStopsAndLinesPastTheAnnouncedOnesAreTold) {
  Ecrire("ENQ.DAT", "11\r\n22\r\n12\r\n21\r\n11\r\n");
  Ecrire("ENQ.MOD", "ENQ\r\n BRT=4 FMT=1 MOD=A~~1\r\nA  1\r\nA  2\r\nB  1\r\nB  2\r\n");
  Ecrire("ENQ.POS", "ENQ\r\n 3 \r\nA     1 2\r\n  A   2 2\r\nB     2 2\r\n");
  EXPECT_EQ(ProfilMod(contexte_, {}), Fin::Arret);
  EXPECT_TRUE(Dit("Le nom A est celui de 2 questions, aux positions 1 et 2")) << montre_;
  // Two questions that no modality stands for say nothing of the profile.
  Ecrire("ENQ.POS", "ENQ\r\n 3 \r\nA     1 2\r\nB     2 2\r\nC     1 2\r\nC     2 2\r\n");
  boites_.clear();
  ASSERT_EQ(ProfilMod(contexte_, {}), Fin::Normale) << montre_;
  EXPECT_TRUE(Dit("B  1")) << montre_;
  ASSERT_EQ(boites_.size(), 1U);
  EXPECT_EQ(boites_[0], "ENQ.POS annonce 3 individus et ENQ.DAT en a 5 : le profil ne porte que sur les premiers");
}

TEST_F(RunProfil, TheDataAndTheirBurtTableGiveTheSameProfile) {
  Ecrire("ENQ.POS", "ENQ\r\n 6 \r\nAGE   1 9\r\nSEX   2 9\r\n");
  Ecrire("ENQ.DAT", "11\r\n11\r\n21\r\n22\r\n32\r\n31\r\n");
  Ecrire("ENQ.MOD",
         "ENQ\r\n BRT=5 FMT=2 MOD=AGE1~SEX2\r\nAGE1   a\r\nAGE2   b\r\nAGE3   c\r\nSEX1   d\r\nSEX2   e\r\n");
  Ecrire("ENQ.BRT", "AGE1 2 0 0 2 0\r\nAGE2 0 2 0 1 1\r\nAGE3 0 0 2 1 1\r\nSEX1 2 1 1 4 0\r\nSEX2 0 1 1 0 2\r\n");
  const auto profil = [&] {
    EXPECT_EQ(ProfilMod(contexte_, {.detail = true}), Fin::Normale);
    const std::string rapport = Lire("ENQ.PR2");
    return rapport.substr(rapport.find("Profil de la modalit"));
  };
  const std::string desDonnees = profil();
  Effacer("ENQ.DAT");
  EXPECT_EQ(profil(), desDonnees);
  Effacer("ENQ.POS");  // the diagonal of the first question makes the six individuals
  EXPECT_EQ(profil(), desDonnees);
  EXPECT_TRUE(boites_.empty());
  // One individual has no answer to the first question: the six are five, which is told.
  Ecrire("ENQ.BRT", "AGE1 1 0 0 1 0\r\nAGE2 0 2 0 1 1\r\nAGE3 0 0 2 1 1\r\nSEX1 1 1 1 4 0\r\nSEX2 0 1 1 0 2\r\n");
  profil();
  ASSERT_EQ(boites_.size(), 1U);
  EXPECT_NE(boites_[0].find("la première question, 5, en tient lieu, mais une autre en a 6."_w), std::string::npos)
      << boites_[0];
}

TEST_F(RunProfil, WithoutDataOnlyABurtTableHasAProfile) {
  Ecrire("ENQ.MOD", "ENQ\r\n LIGN=2 COL=2 FMT=3 MOD=OUI\r\nOUI    oui\r\nNON    non\r\n");
  Ecrire("ENQ.BRT", "OUV  30 10\r\nCAD  10 30\r\n");
  for (const bool avecPos : {false, true}) {
    if (avecPos) Ecrire("ENQ.POS", "ENQ\r\n 80 \r\nAGE   1 2\r\n");
    EXPECT_EQ(ProfilMod(contexte_, {}), Fin::Arret);
    EXPECT_TRUE(Dit("Erreur : ENQ.BRT n'est pas un tableau de Burt, ses lignes ne sont pas ses colonnes")) << montre_;
    EXPECT_FALSE(Dit("Profil de la")) << "a figure of another table";
  }
  Ecrire("ENQ.BRT", "OUI  40  0\r\nNON   0 40\r\n");  // one without BRT= all the same
  EXPECT_EQ(ProfilMod(contexte_, {}), Fin::Normale);
  EXPECT_TRUE(boites_.empty());
}

TEST_F(RunProfil, CellsOfTheBurtTableThatAreNoCountsAreTold) {
  Ecrire("ENQ.MOD", "ENQ\r\n BRT=2 FMT=4 MOD=OUI\r\nOUI    oui\r\nNON    non\r\n");
  Ecrire("ENQ.POS", "ENQ\r\n 80 \r\nAGE   1 2\r\n");
  struct Cas {
    std::string_view oui, non, annonce;  // the rows, and what is told of them
  };
  for (const Cas& cas : {Cas{"  40   3", "   3  40", ""}, Cas{"  40    ", "   0 4e1", ""},
                         Cas{"  40 abc", "   0  40", ": 1, la première ligne 1, colonne 2 (abc)"_w},
                         Cas{"  40  -3", "  -3  40", ": 1, la première ligne 1, colonne 2 (-3)"_w},
                         Cas{"40.5 2.5", " 2.5  -1", ": 3, la première ligne 1, colonne 1 (40.5)"_w},
                         Cas{"  40   0", "   0  4x", ": 1, la première ligne 2, colonne 2 (4x)"_w}}) {
    boites_.clear();
    Ecrire("ENQ.BRT", Joindre({"OUI ", cas.oui, "\r\nNON ", cas.non, "\r\n"}));
    EXPECT_EQ(ProfilMod(contexte_, {}), Fin::Normale) << montre_;
    EXPECT_EQ(boites_.size(), cas.annonce.empty() ? 0U : 1U) << cas.oui;
    EXPECT_TRUE(boites_.empty() || boites_[0].find(cas.annonce) != std::string::npos) << boites_[0];
  }
}

// Blanks around a name count for nothing when it is asked for, and are its own in the file.
TEST_F(RunProfil, ALabelIsGivenToANameThatBeginsWithABlank) {
  Ecrire("ENQ.POS", "ENQ\r\n 4 \r\n A    1 2\r\nSEX   2 2\r\n");
  Ecrire("ENQ.DAT", "11\r\n12\r\n21\r\n22\r\n");
  Ecrire("ENQ.MOD", "ENQ\r\n BRT=4 FMT=1\r\n A 1   un\r\n A 2   deux\r\nSEX1   H\r\nSEX2   F\r\n");
  ASSERT_EQ(ProfilMod(contexte_, {.modalites = {{"A 1"}}, .intitules = {{"A 1", "Mon un"}}}), Fin::Normale) << montre_;
  EXPECT_NE(Lire("ENQ.MOD").find("\r\n A 1   Mon un\r\n A 2   deux\r\n"), std::string::npos) << Lire("ENQ.MOD");
}

TEST_F(RunProfil, ARefusedChoiceLeavesTheFileAndTheForm) {
  EcrireEnquete();
  Ecrire("ENQ.MOD", "ENQ\r\n BRT=3 FMT=1\r\nNB~6\r\n");
  const std::string avant = Lire("ENQ.MOD");
  EXPECT_EQ(ProfilMod(contexte_, {.modalites = {{"NB~6"}}}), Fin::Arret);
  EXPECT_EQ(Lire("ENQ.MOD"), avant);
  Ecrire("ENQ.MOD", "ENQ\r\n\r\nNB36\r\n");
  EXPECT_EQ(ChargerProfil(contexte_).message.size(), 2U);
  Effacer("ENQ.MOD");
  EXPECT_EQ(ChargerProfil(contexte_).message.size(), 2U);
  EXPECT_EQ(ChargerProfil(contexte_).cause, "") << "its absence is the sentence";
  std::filesystem::create_directory(dossier_.Chemin() / "ENQ.MOD");
  boites_.clear();
  EXPECT_EQ(ProfilMod(contexte_, {.modalites = {{"NB36"}}}), Fin::Arret);
  ASSERT_EQ(boites_.size(), 1U);
  EXPECT_NE(boites_[0].find("ENQ.MOD"), std::string::npos) << boites_[0];
  EXPECT_EQ(montre_.find("ENQ.MOD"), std::string::npos) << "the report keeps to the sentence";
  std::filesystem::remove(dossier_.Chemin() / "ENQ.MOD");
  Ecrire("ENQ.PR2", "ancien");
  AbandonnerProfil(contexte_);
  EXPECT_EQ(Lire("ENQ.PR2"), "ancien") << "told, and not kept";
}

}  // namespace
}  // namespace quelvar
