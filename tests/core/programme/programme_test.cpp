#include "core/programme/programme.h"

#include <gtest/gtest.h>

#include "core/enquete/datfile.h"
#include "core/programme/place.h"
#include "support/programme.h"

namespace quelvar {
namespace {

class Cadre : public essai::RunDeProgramme {
 protected:
  Cadre() {
    dialogue_.afficher = [this](const Affichage& affichage) { vu_ = affichage; };
  }
  Fin Executer(const std::function<void(Rapport&)>& corps, std::string_view rapport = "ENQ.PRT") {
    return ExecuterProgramme(contexte_, rapport, LibellesErreur{}, corps);
  }

  Affichage vu_;
};

TEST_F(Cadre, EveryFailureIsToldByItsNumber) {
  const struct {
    std::function<void()> faute;
    std::string_view lignes;
  } cas[] = {
      {[] { throw Erreur(kFinDeFichierDepassee); },
       "**** ERREUR ********\r\nIl y a eu tentative de lire un fichier deja termine\r\nVerifiez et corrigez avant de "
       "relancer\r\n"},
      {[] {
         throw Erreur(kArgumentIncorrect, {2, "BBB", 0, 3});
       },
       "**** ERREUR ********\r\nIl y a probablement une erreur dans le fichier *.POS\r\na la question  2  nom=BBB\r\n"
       "position = 0  code maximum= 3 \r\nVerifiez et corrigez avant de relancer\r\n"},
      {[] { throw Erreur(kDivisionParZero); },
       "**** ERREUR ********\r\n Erreur non prévue : si après vérification l'erreur persiste\r\n"
       " notez le numero =  11 Division par zéro\r\n et prévenez l'assistance technique\r\n"_w},
      {[] { throw std::bad_alloc(); },
       "**** ERREUR ********\r\n Erreur non prévue : si après vérification l'erreur persiste\r\n"
       " notez le numero =  7 Mémoire insuffisante\r\n et prévenez l'assistance technique\r\n"_w},
      {[] { throw Erreur(kArretAnnonce); }, ""},
  };
  for (const auto& [faute, lignes] : cas) {
    const Fin fin = Executer([&faute = faute](Rapport& rapport) {
      rapport.Ligne("debut");
      faute();
    });
    EXPECT_EQ(fin, Fin::Arret);
    EXPECT_EQ(vu_.texte, Joindre({"debut\r\n", lignes}));
  }
}

// The screen is told what the fixed lines of the report leave out: file, line and column, or that the fault is ours.
TEST_F(Cadre, AFailureTellsItsPlaceBesideTheReport) {
  Ecrire("ENQ.POS", "ENQ\r\n 2 \r\nSEX   1 2\r\nAGE 9E91 9\r\n");
  Ecrire("ENQ.DAT", "111\r\n19E9\r\n");
  Ecrire("UNE.POS", "UNE\r\n");
  const struct {
    std::function<void()> faute;
    std::string panne;
  } cas[] = {
      {[&] { LirePos(contexte_.Exiger(".POS")); },
       Joindre({"Dépassement de capacité (ENQ.POS, ligne 4, colonne 4)"_w})},
      {[&] {
         LecteurIndividus lecteur(contexte_.Exiger(".DAT"), 4);
         Parcourir(lecteur, 9, [](const char* ligne, std::int64_t) { LireChampInterieur(ligne, {1, 3}); });
       },
       Joindre({"Dépassement de capacité (ENQ.DAT, ligne 2, colonne 2)"_w})},
      {[&] { LirePos(dossier_.Chemin() / "UNE.POS"); },
       Joindre({"L'entrée dépasse la fin de fichier (UNE.POS, ligne 1)"_w})},
      {[] { static_cast<void>(std::string("a").at(1)); }, "faute du programme"},
      {[] { throw Erreur(kDivisionParZero); }, ""},
      {[] {
         throw Erreur(kArretAnnonce).Situer({"ENQ.POS", 1, 1});
       },
       ""},
      {[] {
         throw Erreur(FauteSituee{"la question SEX n'a pas de code", {"ENQ.MOD", 4}}).Situer({"ENQ.DAT", 1, 1});
       },
       "la question SEX n'a pas de code (ENQ.MOD, ligne 4)"},
      {[] {
         throw Erreur(FauteSituee{"personne ne sait où"}).Situer({"ENQ.DAT", 1, 1});
       },
       ""},
  };
  for (const auto& [faute, panne] : cas) {
    EXPECT_EQ(Executer([&faute = faute](Rapport&) { faute(); }), Fin::Arret);
    EXPECT_EQ(vu_.texte.find("SEX"), std::string::npos) << "the report has its own words";
    if (panne == "faute du programme") EXPECT_NE(vu_.panne.find(panne), std::string::npos) << vu_.panne;
    else EXPECT_EQ(vu_.panne, panne);
  }
}

TEST_F(Cadre, AReportOfExactlyTheLimitIsShown) {
  const auto ecrire = [](std::size_t taille) {
    return [taille](Rapport& rapport) { rapport.Suite(std::string(taille, 'x')); };
  };
  EXPECT_EQ(Executer(ecrire(35000)), Fin::Normale);
  EXPECT_EQ(vu_.ou, Affichage::Ou::Texte);
  EXPECT_EQ(bips_, 0);
  EXPECT_EQ(Executer(ecrire(35001)), Fin::Normale);
  EXPECT_EQ(vu_.ou, Affichage::Ou::Lecteur);
  EXPECT_EQ(vu_.texte,
            "texte trop long, WordPad est lancé\r\npour examiner les résultats de : ENQ.PRT\r\nProgramme terminé"_w);
  EXPECT_EQ(bips_, 1);
}

TEST_F(Cadre, AReportWithoutANameIsDeletedOnceShown) {
  Executer([](Rapport& rapport) { rapport.Ligne("a"); }, "$$$.prt");
  EXPECT_EQ(vu_.texte, "a\r\n");
  EXPECT_FALSE(Existe("$$$.prt"));
  Executer([](Rapport& rapport) { rapport.Suite(std::string(35001, 'x')); }, "$$$.prt");
  EXPECT_EQ(vu_.ou, Affichage::Ou::Lecteur);
  EXPECT_EQ(LireOctets(vu_.rapport).size(), 35001U) << "the viewer reads it from its file";
  contexte_.generique.clear();
  Executer([](Rapport& rapport) { rapport.Ligne("b"); }, ".PRT");
  EXPECT_EQ(vu_.texte, "b\r\n");
  EXPECT_FALSE(Existe(".PRT"));
}

TEST_F(Cadre, EveryMissingFileIsToldBeforeTheRunStops) {
  Ecrire("ENQ.DAT", "");
  const auto exiger = [this](std::string_view extension) {
    return [this, extension](Rapport& rapport) {
      ExigerFichiers(
          rapport, dialogue_,
          {Obligatoire(contexte_, ".DAT"), Obligatoire(contexte_, extension), {"A.MOD", extension == ".DAT", "*** La"}},
          "fin");
    };
  };
  EXPECT_EQ(Executer(exiger(".DAT")), Fin::Normale);
  EXPECT_EQ(vu_.texte, "");
  EXPECT_EQ(bips_, 0);
  EXPECT_EQ(Executer(exiger(".POS")), Fin::Arret);
  EXPECT_EQ(vu_.texte, "Le fichier ENQ.POS n'existe pas\r\n*** La A.MOD n'existe pas\r\nfin\r\n");
  EXPECT_EQ(bips_, 1);
}

TEST_F(Cadre, WhatTakesMuchRoomIsAskedAndNoIsTheDefault) {
  const auto prendre = [](const Contexte& contexte, std::uint64_t octets) {
    return [&contexte, octets](Rapport& rapport) { ExigerPlace(contexte, rapport, {octets, 0}); };
  };
  bouton_ = Reponse::Non;
  EXPECT_EQ(Executer(prendre(contexte_, 1000)), Fin::Normale);
  EXPECT_EQ(Executer(prendre(contexte_, std::uint64_t{1} << 60)), Fin::Arret);
  EXPECT_NE(vu_.texte.find("il prendrait 1152921504606846976 octets de mémoire"_w), std::string::npos) << vu_.texte;
  EXPECT_EQ(PremierBouton(Boutons::NonOui), Reponse::Non);
  bouton_ = Reponse::Oui;
  EXPECT_EQ(Executer(prendre(contexte_, std::uint64_t{1} << 60)), Fin::Normale);
}

TEST_F(Cadre, AReportThatCannotBeWrittenIsToldOnTheScreen) {
  std::filesystem::create_directory(dossier_.Chemin() / "ENQ.PRT");
  EXPECT_EQ(Executer([](Rapport&) {}), Fin::Arret);
  EXPECT_EQ(vu_.texte, "ENQ.PRT est un répertoire et non un fichier : Erreur d'accès chemin/fichier\r\n"_w);
  std::filesystem::create_symlink("/dev/full", dossier_.Chemin() / "ENQ.PLE");
  EXPECT_EQ(Executer([](Rapport& rapport) { rapport.Ligne("x"); }, "ENQ.PLE"), Fin::Arret);
  EXPECT_EQ(vu_.texte, "full est un tube ou un périphérique et non un fichier : Erreur d'accès chemin/fichier\r\n"_w);
  std::filesystem::remove(dossier_.Chemin() / "ENQ.PRT");
  Executer([](Rapport& rapport) { rapport.Ligne("ancien"); });
  const essai::DisquePlein plein(10);
  EXPECT_EQ(Executer([](Rapport& rapport) { rapport.Ligne("un rapport trop long"); }), Fin::Arret);
  EXPECT_NE(vu_.texte.find("notez le numero =  61 Disque plein"), std::string::npos);
}

}  // namespace
}  // namespace quelvar
