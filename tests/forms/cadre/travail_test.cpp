// Work that no file has yet, in every form that holds some: whatever would lose it asks first, and "Annuler" keeps it.
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include "core/fichiers/fichiers.h"
#include "forms/pilote.h"
#include "forms/programmes/crosstab/choixvar.h"
#include "forms/programmes/modalities/modifmod.h"
#include "forms/programmes/modalities/nomemod.h"
#include "forms/programmes/modalities/nomquest.h"
#include "forms/programmes/sorts/preprecod.h"

using namespace quelvar::forms;

namespace {

using essai::Bureau;
using essai::BureauDe;
using essai::Cliquer;
using essai::CliquerLigne;
using essai::Pilote;
using essai::Taper;

struct BureauAuTravail : BureauDe {
  BureauAuTravail()
      : BureauDe(2, {{"ENQ.POS", "ENQ\r\n 4 \r\nSEX   1 2 $Sexe$ &ACT&\r\nAGE   2 3 $Age$ &SUP&\r\nCSP   3 1\r\n"},
                     {"ENQ.DAT", "111\r\n221\r\n130\r\n111\r\n"},
                     {"ENQ.MOD", "ENQ\r\n BRT=2 FMT=2 \r\nSEX1   Homme\r\nSEX2   \r\n"},
                     {"ENQ.BRT", "SEX1 3 0\r\nSEX2 0 1\r\n"},
                     {"ENQ.CSV", "SEX;AGE\r\n1;2\r\n"},
                     {"AUTRE.POS", "AUTRE\r\n 1 \r\nSEX   1 2\r\n"},
                     {"AUTRE.DAT", "1\r\n"}}) {}
};

// A form with something typed or chosen in it.
struct Travail {
  const char* nom;
  const char* bouton;  // the one that leaves it
  std::function<Forme*(BureauAuTravail&)> commencer;
};

const std::array<Travail, 5> kTravaux = {Travail{"NomQuest", "BoutQuitter",
                                                 [](BureauAuTravail& bureau) {
                                                   auto& forme = bureau.Demander<NomQuest>("mnuNomQuest");
                                                   CliquerLigne(forme, "ListRecap", 0);
                                                   Taper(forme, "TextMod", "Genre");
                                                   return static_cast<Forme*>(&forme);
                                                 }},
                                         Travail{"ModifMod", "BoutQuitter",
                                                 [](BureauAuTravail& bureau) {
                                                   auto& forme = bureau.Demander<ModifMod>("mnuModifMod");
                                                   CliquerLigne(forme, "ListSuppl", 0);
                                                   return static_cast<Forme*>(&forme);
                                                 }},
                                         Travail{"NomeMod", "BoutQuitter",
                                                 [](BureauAuTravail& bureau) {
                                                   auto& forme = bureau.Demander<NomeMod>("mnuNomMod");
                                                   Cliquer(forme, "BoutModif");
                                                   CliquerLigne(forme, "ListRecap", 1);
                                                   Taper(forme, "TextMod", "Femme");
                                                   return static_cast<Forme*>(&forme);
                                                 }},
                                         Travail{"ChoixVar", "BoutNouv",
                                                 [](BureauAuTravail& bureau) {
                                                   auto& forme = bureau.Demander<ChoixVar>("mnuCroise");
                                                   CliquerLigne(forme, "ListVar1", 0);
                                                   Cliquer(forme, "BoutLignePlus");
                                                   CliquerLigne(forme, "ListVar1", 1);
                                                   Cliquer(forme, "BoutColPlus");
                                                   return static_cast<Forme*>(&forme);
                                                 }},
                                         Travail{"PrepRecod", "BoutQuitter", [](BureauAuTravail& bureau) {
                                                   auto& forme = bureau.Demander<PrepRecod>("mnuPrepRecod");
                                                   CliquerLigne(forme, "ListPos", 0);
                                                   Taper(forme, "TextMod", "1=2");
                                                   return static_cast<Forme*>(&forme);
                                                 }}};

// What would lose it.
struct Perte {
  const char* nom;
  std::function<void(BureauAuTravail&, Forme&, const Travail&)> faire;
};

const std::array<Perte, 9> kPertes = {
    Perte{"its button", [](BureauAuTravail&, Forme& forme, const Travail& travail) { Cliquer(forme, travail.bouton); }},
    Perte{"Escape", [](BureauAuTravail&, Forme& forme, const Travail&) { QTest::keyClick(&forme, Qt::Key_Escape); }},
    Perte{"the cross of the frame",
          [](BureauAuTravail&, Forme& forme, const Travail&) {
            QCloseEvent croix;
            QSpontaneKeyEvent::setSpontaneous(&croix);
            qApp->notify(&forme, &croix);
          }},
    Perte{"the cross of the main form",
          [](BureauAuTravail& bureau, Forme&, const Travail&) { bureau.Fenetre().close(); }},
    Perte{"Quitter", [](BureauAuTravail& bureau, Forme&, const Travail&) { bureau.Menu("mnuQuitter"); }},
    Perte{"Nouvelle demande",
          [](BureauAuTravail& bureau, Forme&, const Travail&) { Cliquer(bureau.Fenetre(), "BoutNouv"); }},
    Perte{"the level", [](BureauAuTravail& bureau, Forme&, const Travail&) { bureau.Menu("mnuNiv1"); }},
    Perte{"the generic",
          [](BureauAuTravail& bureau, Forme&, const Travail&) {
            bureau.Controle<QComboBox>("ComboGen").setEditText("AUTRE");
            Cliquer(bureau.Fenetre(), "CmdGenOui");
          }},
    Perte{"a long report", [](BureauAuTravail& bureau, Forme&, const Travail&) {
            bureau.Fenetre().ServicesDesFormes().ecran.afficher(
                {quelvar::Affichage::Ou::Lecteur, "long", "ENQ.TAP", (bureau.Dossier() / "ENQ.POS").string(), {}});
          }}};

TEST(TravailNonEnregistre, EstDemandeParToutCeQuiLePerdrait) {
  for (const Travail& travail : kTravaux)
    for (const Perte& perte : kPertes) {
      SCOPED_TRACE(std::string(travail.nom) + ", " + perte.nom);
      BureauAuTravail bureau;
      const auto avant = bureau.Lire("ENQ.POS") + bureau.Lire("ENQ.MOD");
      Pilote pilote;
      const Forme* forme = travail.commencer(bureau);
      ASSERT_TRUE(forme->ATravail());
      pilote.Cliquer("Annuler");
      perte.faire(bureau, *const_cast<Forme*>(forme), travail);
      EXPECT_EQ(pilote.Vues().size(), 1);
      EXPECT_TRUE(forme->isVisible() && forme->ATravail()) << "kept";
      EXPECT_TRUE(bureau.Fenetre().isVisible());
      EXPECT_EQ(bureau.Fenetre().ServicesDesFormes().session.generique, "ENQ");
      EXPECT_EQ(bureau.Fenetre().ServicesDesFormes().session.niveau, 2);
      EXPECT_EQ(bureau.Lire("ENQ.POS") + bureau.Lire("ENQ.MOD"), avant);
      pilote.Cliquer("OK");
      bureau.Fenetre().close();
    }
}

}  // namespace
