// The forms that launch the flat sort and the recoding.
#include <gtest/gtest.h>

#include "forms/bureauenq.h"
#include "forms/programmes/session/frmabout.h"
#include "forms/programmes/sorts/choixrecodage.h"
#include "forms/programmes/sorts/choixtriapl.h"

using namespace quelvar::forms;

namespace {

using essai::BureauEnq;
using essai::Cliquer;
using essai::Pilote;

TEST(Recodage, LaBoiteDuGeneriqueAnnuleeArreteTout) {
  BureauEnq bureau(1);
  bureau.AvecDonnees();
  bureau.Ouvrir();
  Pilote pilote;
  pilote.Abandonner();
  bureau.Menu("mnuOutils");
  EXPECT_EQ(bureau.Texte(), "Arrêt volontaire du programme\n");
  EXPECT_FALSE(bureau.Existe("ENR.POS") || bureau.Existe("ENR.REC"));
  EXPECT_EQ(bureau.Fenetre().ServicesDesFormes().session.generique, "ENQ");
  // Of the three buttons on the modality file Escape is "Non": nothing goes along, and the question comes again.
  pilote.Taper("SUITE");
  pilote.Abandonner();
  bureau.Menu("mnuOutils");
  EXPECT_TRUE(bureau.Existe("SUITE.DAT"));
  EXPECT_FALSE(bureau.Existe("SUITE.MOD"));
  EXPECT_FALSE(bureau.Fenetre().ServicesDesFormes().session.passerModalites);
}

// What the form launches replaces no survey unasked, and neither does the line that it shows.
TEST(Recodage, LaCommandeNEcrasePasPlusQueLeFormulaire) {
  BureauEnq bureau(2);
  bureau.AvecDonnees();
  bureau.Ecrire("ENR.POS", "PRIS\r\n 1 \r\nA     1 2\r\n");
  bureau.Ecrire("ENR.DAT", "1\r\n");
  bureau.Ouvrir();
  Pilote pilote;
  bureau.Menu("mnuOutils");
  auto* recodage = bureau.Forme<ChoixRecodage>();
  const QString commande = essai::FaitCommeLaCommande(bureau, pilote, *recodage, [&] {
    pilote.Faire([](QDialog& boite) { boite.accept(); });  // the free name that is proposed
    pilote.Cliquer("Oui");
    Cliquer(*recodage, "BoutonTriapl");
  });
  EXPECT_TRUE(commande.contains("remplacer=non")) << commande.toStdString();
  EXPECT_EQ(bureau.Lire("ENR.DAT"), "1\r\n");
}

// A run that is given up in one of its boxes leaves its form, with what was chosen there, and the former report.
TEST(Annulation, LeFormulaireResteAvecSesChoix) {
  BureauEnq bureau(2);
  bureau.AvecDonnees();
  bureau.Ecrire("ENQ.TAP", "tri d'avant\r\n");
  bureau.Ouvrir();
  Pilote pilote;
  bureau.Menu("mnuTriapl");
  ChoixTriapl* tri = bureau.Forme<ChoixTriapl>();
  Cliquer(*tri, {"CaseTriang", "CaseVerif"});
  pilote.Abandonner();  // the title of the triangular graph
  Cliquer(*tri, "BoutonTriapl");
  EXPECT_TRUE(tri->isVisible() && essai::Coche(*tri, "CaseTriang") && essai::Coche(*tri, "CaseVerif"));
  EXPECT_EQ(bureau.Texte(), "Arrêt volontaire du programme\n");
  EXPECT_EQ(bureau.Lire("ENQ.TAP"), "tri d'avant\r\n");

  bureau.Ecrire("PRIS.POS", "PRIS\r\n 1 \r\nA     1 2\r\n");
  bureau.Menu("mnuOutils");
  auto* recodage = bureau.Forme<ChoixRecodage>();
  Cliquer(*recodage, "CaseRepMult");
  pilote.Abandonner();  // the new generic
  Cliquer(*recodage, "BoutonTriapl");
  pilote.Taper("PRIS");
  pilote.Cliquer("Non");  // its files are not to be replaced
  Cliquer(*recodage, "BoutonTriapl");
  EXPECT_TRUE(recodage->isVisible() && essai::Coche(*recodage, "CaseRepMult"));
  EXPECT_FALSE(bureau.Existe("PRIS.REC"));
}

TEST(TriAPlat, NiveauUnSansOptions) {
  BureauEnq bureau(1);
  bureau.AvecDonnees();
  bureau.Ouvrir();
  bureau.Menu("mnuTriapl");
  EXPECT_EQ(bureau.Forme<ChoixTriapl>(), nullptr);
  EXPECT_TRUE(bureau.Texte().contains("Homme"));
  EXPECT_TRUE(bureau.Texte().contains("Fin normale du programme"));
  EXPECT_FALSE(bureau.Texte().contains("exclues"));
}

TEST(TriAPlat, ChaqueOptionDuNiveauDeux) {
  BureauEnq bureau(2);
  bureau.AvecDonnees();
  bureau.Ecrire("AUTRE.DAT", "11\r\n11\r\n11\r\n11\r\n");
  bureau.Ouvrir();
  Pilote pilote;
  const auto lancer = [&](std::initializer_list<const char*> cases, const char* bouton = nullptr) {
    bureau.Menu("mnuTriapl");
    ChoixTriapl* forme = bureau.Forme<ChoixTriapl>();
    if (forme == nullptr) throw std::runtime_error("no options");
    EXPECT_EQ(forme->windowTitle(), "Options du tri à plat");
    EXPECT_TRUE(essai::Coche(*forme, "CaseMod"));
    EXPECT_TRUE(essai::Coche(*forme, "BoutNROui"));
    for (const char* nom : {"CaseTriang", "CaseRepMult", "CaseVerif", "CaseDat"})
      EXPECT_FALSE(essai::Coche(*forme, nom)) << nom;
    for (const char* nom : cases) Cliquer(*forme, nom);
    if (bouton != nullptr) Cliquer(*forme, bouton);
    Cliquer(*forme, "BoutonTriapl");
    return bureau.Texte();
  };
  EXPECT_TRUE(lancer({}).contains("Homme"));
  EXPECT_FALSE(lancer({"CaseMod"}).contains("Homme"));
  EXPECT_TRUE(lancer({}, "BoutNRNon").contains("non-réponses (de code zéro) exclues"));
  EXPECT_TRUE(lancer({"CaseRepMult"}).contains("Impression du cumul"));
  EXPECT_TRUE(lancer({"CaseVerif"}).contains("Depassement de code-max a AGE"));
  pilote.Choisir(QString::fromStdString((bureau.Dossier() / "AUTRE.DAT").string()));
  EXPECT_TRUE(lancer({"CaseDat"}).contains("Le nom du fichier d'entree est AUTRE.DAT"));
  pilote.Taper("Mon graphique");
  for (const char* sommet : {"un", "deux", "trois"}) pilote.Taper(sommet);
  EXPECT_TRUE(lancer({"CaseTriang"}).contains("non-réponses (de code zéro) exclues")) << "triangular forces it";
  EXPECT_TRUE(bureau.Lire("ENQ.TRG").starts_with("Mon graphique\r\nun\r\ndeux\r\ntrois\r\n"));
}

TEST(TriAPlat, AbandonDuFichierEtAnnulation) {
  BureauEnq bureau(2);
  bureau.AvecDonnees();
  bureau.Ouvrir();
  bureau.Menu("mnuTriapl");
  ChoixTriapl* forme = bureau.Forme<ChoixTriapl>();
  Cliquer(*forme, "CaseDat");
  Pilote pilote;
  pilote.Abandonner();
  Cliquer(*forme, "BoutonTriapl");
  EXPECT_FALSE(bureau.Existe("ENQ.TAP"));
  EXPECT_TRUE(forme->isVisible());
  Cliquer(*forme, "BoutonTriaplNull");
  EXPECT_EQ(bureau.Forme<ChoixTriapl>(), nullptr);
}

TEST(TriAPlat, RapportLongDansLeLecteur) {
  BureauEnq bureau(1);
  std::string pos = "ENQ\r\n 1 \r\n";
  for (int i = 1; i <= 400; ++i) {
    char ligne[64];
    std::snprintf(ligne, sizeof ligne, "%03d%4d 9 $Question numero %d$\r\n", i, i, i);
    pos += ligne;
  }
  bureau.Ecrire("ENQ.POS", pos);
  bureau.Ecrire("ENQ.DAT", std::string(400, '1') + "\r\n");
  bureau.Ouvrir();
  bureau.Menu("mnuAPropos");
  bureau.Menu("mnuTriapl");
  EXPECT_EQ(bureau.Texte(),
            "texte trop long, WordPad est lancé\npour examiner les résultats de : ENQ.TAP\nProgramme terminé");
  EXPECT_EQ(bureau.demarres,
            QStringList("quelvar-lecteur " + QString::fromStdString((bureau.Dossier() / "ENQ.TAP").string())));
  EXPECT_EQ(bureau.Forme<FrmAbout>(), nullptr);
}

}  // namespace
