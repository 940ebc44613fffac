#include "batch/ligne_de_commande.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "batch/dialogue_batch.h"
#include "sorts/triapl/triapl.h"

namespace quelvar::batch {
namespace {

TEST(LigneDeCommande, GlobalOptionsMayStandOnBothSidesOfTheProgram) {
  const Demande demande =
      LireLigneDeCommande({"-C", "/", "--niveau", "2", "--reponse", "Oui", "TRIAPL", "Enqu\xC3\xAAte.pos", "Limite=50",
                           "--horloge", "2017-05-02 14:30:05", "donnees=A=B.DAT"});
  EXPECT_EQ(demande.programme->nom, "triapl");
  EXPECT_EQ(demande.generique, "Enquête"_w);
  EXPECT_EQ(demande.niveau, 2);
  EXPECT_EQ(demande.repertoire, "/");
  EXPECT_EQ(demande.reponses.size(), 1U);
  EXPECT_EQ(TexteDate(*demande.horloge) + TexteHeure(*demande.horloge), "02/05/201714:30:05");
  EXPECT_EQ(demande.options, (std::vector<ValeurDOption>{{"limite", "50"}, {"donnees", "A=B.DAT"}}));
  EXPECT_EQ(LireLigneDeCommande({"triapl", "--aide"}).genre, Demande::Genre::AideProgramme);
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

struct OptionsEssai {
  bool drapeau = false;
  int nombre = 7;
  std::string texte{};
};
OptionsEssai recues;
Fin Essai(const Contexte&, const OptionsEssai& options) {
  recues = options;
  return Fin::Normale;
}

TEST(Description, OptionsAreCheckedBeforeTheRun) {
  const Programme programme = Description<OptionsEssai>("essai", "essai", Essai)
                                  .OuiNon("drapeau", &OptionsEssai::drapeau, "un drapeau")
                                  .Entier("nombre", &OptionsEssai::nombre, -5, 50, "un nombre")
                                  .Alias({"casenombre"})
                                  .Texte("texte", &OptionsEssai::texte, "TEXTE", "un texte");
  EXPECT_EQ(programme.executer({}, {{"drapeau", "OUI"}, {"nombre", "-3"}, {"texte", "a b"}}), Fin::Normale);
  EXPECT_TRUE(recues.drapeau);
  EXPECT_EQ(recues.nombre, -3);
  EXPECT_EQ(recues.texte, "a b");
  EXPECT_EQ(programme.executer({}, {{"casenombre", "9"}, {"te", "abrege"}}), Fin::Normale);
  EXPECT_EQ(recues.nombre, 9);
  EXPECT_EQ(recues.texte, "abrege");
  for (const ValeurDOption& faute : std::vector<ValeurDOption>{{"drapeau", "peut-etre"},
                                                               {"nombre", "51"},
                                                               {"nombre", ""},
                                                               {"nombre", "-"},
                                                               {"nombre", "3x"},
                                                               {"autre", "1"}})
    EXPECT_THROW(programme.executer({}, {faute}), UsageIncorrect) << faute.first << "=" << faute.second;
  const std::string aide = TexteAideProgramme(programme);
  EXPECT_NE(aide.find("nombre=-5..50\n      un nombre (par défaut : 7)\n"_w), std::string::npos) << aide;
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
  Demande demande;
  demande.reponses = {"non", "annuler", "nouveau"};
  Dialogue dialogue = DialogueBatch(demande);
  EXPECT_EQ(dialogue.demander("information", Boutons::Ok), Reponse::Ok);
  EXPECT_EQ(dialogue.demander("question", Boutons::OuiNon), Reponse::Non);
  EXPECT_EQ(dialogue.demander("question", Boutons::OuiNonAnnuler), Reponse::Annuler);
  EXPECT_EQ(dialogue.saisir("nom", "propose"), "nouveau");
  EXPECT_EQ(dialogue.saisir("nom", "propose"), "propose");
  EXPECT_EQ(dialogue.demander("question", Boutons::OuiNon), Reponse::Oui);
  EXPECT_EQ(dialogue.choisirFichier("titre", ""), "");
}

}  // namespace
}  // namespace quelvar::batch
