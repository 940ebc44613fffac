#include "batch/commande.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "batch/dialogue.h"
#include "core/programme/annulation.h"

namespace quelvar::batch {
namespace {

TEST(LigneDeCommande, GlobalOptionsMayStandOnBothSidesOfTheProgram) {
  const LigneDeCommande demande =
      LireLigneDeCommande({"-C", "/", "--niveau", "2", "--reponse", "Oui", "TRIAPL", "Enqu\xC3\xAAte.pos", "Limite=50",
                           "--horloge", "2017-05-02 14:30:05", "donnees=A=B.DAT"});
  EXPECT_EQ(demande.programme->nom, "triapl");
  EXPECT_EQ(demande.generique, "Enquête"_w);
  EXPECT_EQ(demande.niveau, 2);
  EXPECT_EQ(demande.repertoire, "/");
  EXPECT_EQ(demande.reponses.size(), 1U);
  EXPECT_EQ(TexteDate(*demande.horloge) + TexteHeure(*demande.horloge), "02/05/201714:30:05");
  EXPECT_EQ(demande.options, (LigneDOptions{{"limite", "50"}, {"donnees", "A=B.DAT"}}));
  EXPECT_EQ(LireLigneDeCommande({"triapl", "--aide"}).genre, LigneDeCommande::Genre::AideProgramme);
}

TEST(LigneDeCommande, WhatCannotBeRunIsRefused) {
  const std::vector<std::vector<std::string>> cas = {{},
                                                     {"inconnu", "ENQ"},
                                                     {"triapl"},
                                                     {"--niveau", "3", "triapl", "ENQ"},
                                                     {"--niveau"},
                                                     {"-C", "/absent/absent", "triapl", "ENQ"},
                                                     {"--horloge", "hier", "triapl", "ENQ"},
                                                     {"--horloge", "2017-13-02 14:30:05", "triapl", "ENQ"},
                                                     {"-x", "triapl", "ENQ"},
                                                     {"triapl", "ENQ", "limite"},
                                                     {"triapl", "ENQ", "=50"}};
  for (const auto& arguments : cas) EXPECT_THROW(LireLigneDeCommande(arguments), UsageIncorrect);
}

// What the code page lacks would become "?" in a file of the survey; in the name of a file, of a sheet or of a generic
// it stays what it is.
TEST(LigneDeCommande, ForeignCharactersAreRefusedWhereAFileWouldLoseThem) {
  const auto refus = [](const std::vector<std::string>& arguments) -> std::string {
    try {
      LireLigneDeCommande(arguments);
    } catch (const UsageIncorrect& erreur) {
      return VersUtf8(erreur.what());
    }
    return {};
  };
  EXPECT_EQ(refus({"modifmodr", "ENQ", "intitule=CIN1=caf\xC3\xA9 \xE6\x97\xA5\xE6\x9C\xAC"}),
            VersUtf8("l'option intitule : le caractère 11, \""_w) + "\xE6\x97\xA5" +
                VersUtf8("\", n'existe pas dans la page de code des fichiers (Windows-1252) : remplacez-le"_w));
  EXPECT_NE(refus({"nomquest", "ENQ", "intitule=SEX=caf\xE9"}).find("n'est pas de l'UTF-8"), std::string::npos);
  EXPECT_EQ(refus({"modifmodr", "ENQ", "intitule=CIN1=\xE2\x82\xAC \xC5\x93uvre \xC2\x81?"}), "");
  EXPECT_EQ(refus({"import", "ENQ", "feuille=\xE6\x97\xA5", "fichier=\xE6\x97\xA5.csv"}), "");
  EXPECT_EQ(refus({"anatab", "\xE6\x97\xA5", "image=\xE6\x97\xA5.svg"}), "");
  const LigneDeCommande demande = LireLigneDeCommande({"--reponse", "\xE6\x97\xA5", "modifburt", "ENQ"});
  EXPECT_EQ(VersUtf8(demande.reponses.front()), "\xE6\x97\xA5") << "it may name a generic";
}

TEST(Programmes, EveryProgramIsListedOnceWithItsHelp) {
  std::vector<std::string> noms;
  for (const Programme& programme : Programmes()) {
    noms.push_back(programme.nom);
    EXPECT_NE(TexteListe().find(programme.nom + " "), std::string::npos);
    for (const Option& option : programme.options)
      EXPECT_FALSE(option.aide.empty()) << programme.nom << " " << option.nom;
  }
  std::sort(noms.begin(), noms.end());
  EXPECT_EQ(std::adjacent_find(noms.begin(), noms.end()), noms.end());
}

TEST(DialogueBatch, AnswersAreTakenInOrderAndOnlyByBoxesThatAsk) {
  LigneDeCommande demande;
  demande.reponses = {"non", "annuler", "nouveau"};
  Dialogue dialogue = DialogueBatch(demande);
  EXPECT_EQ(dialogue.demander("information", Boutons::Ok), Reponse::Ok);
  EXPECT_EQ(dialogue.demander("question", Boutons::OuiNon), Reponse::Non);
  EXPECT_EQ(dialogue.demander("question", Boutons::OuiNonAnnuler), Reponse::Annuler);
  EXPECT_EQ(dialogue.saisir("nom", "propose"), "nouveau");
  EXPECT_EQ(dialogue.saisir("nom", "propose"), "propose");
  EXPECT_EQ(dialogue.demander("question", Boutons::OuiNon), Reponse::Oui);
  EXPECT_EQ(dialogue.choisirFichier("titre", ""), "");
  demande.reponses = {"Annuler", "Annuler", "annuler"};
  EXPECT_THROW(dialogue.demander("question", Boutons::OuiNon), Annulation);
  EXPECT_THROW(dialogue.saisir("nom", "propose"), Annulation) << "no name, but the box given up";
  EXPECT_EQ(dialogue.choisirFichier("titre", ""), "");
}

}  // namespace
}  // namespace quelvar::batch
