// Marked elements of the factor plane become one, under a new generic that is ready for the factors.
#include <gtest/gtest.h>

#include "factor/analyse/anecar.h"
#include "forms/programmes/factor/graphe3/plan.h"
#include "forms/programmes/modalities/modifmod.h"
#include "modalities/creation/posmod.h"

using namespace quelvar::forms;

namespace {

using essai::Bureau;
using essai::Champ;
using essai::Cliquer;
using essai::Pilote;
using essai::TaperEtRetour;

// Ten people, sex and reading, analysed: Burt table SEX1 5 0 3 1 1, SEX2 0 5 1 2 2, LEC1 3 1 4 0 0, LEC2 1 2 0 3 0,
// LEC3 1 2 0 0 3.
struct BureauAnalyse : Bureau {
  BureauAnalyse() : Bureau(1) {
    Ecrire("ENQ.POS", "ENQ\r\n 10 \r\nSEX   1 2 $Sexe$\r\nLEC   2 3 $Lecture$\r\n");
    Ecrire("ENQ.DAT", "11\r\n11\r\n11\r\n12\r\n13\r\n21\r\n22\r\n22\r\n23\r\n23\r\n");
    quelvar::Dialogue muet;
    const quelvar::Contexte contexte{Dossier(), "ENQ", 1, &muet};
    quelvar::modalities::OptionsPosmod choix;
    choix.actives = {"SEX", "LEC"};
    choix.codesZero = false;
    quelvar::modalities::Posmod(contexte, choix);
    quelvar::factor::Anecar(contexte, {});
    Ouvrir();
  }
};

// The words of each line.
QStringList LignesDe(const std::string& octets) {
  QStringList lignes;
  for (const QString& ligne : QString::fromLatin1(octets.c_str()).split("\r\n", Qt::SkipEmptyParts))
    lignes << ligne.simplified();
  return lignes;
}

void MarquerALaSouris(const Graphe3& forme, const char* nom) {
  const VueDessin& vue = essai::Image(forme);
  for (const quelvar::FormeDessinee& marque : vue.Contenu().Formes()) {
    if (marque.genre != quelvar::GenreForme::Texte || marque.id < 0 || marque.texte != nom) continue;
    const quelvar::Zone zone = vue.Contenu().Etendue(marque);
    const QPointF milieu(zone.x + zone.largeur / 2, zone.y + zone.hauteur / 2);
    QTest::mouseClick(vue.viewport(), Qt::RightButton, {}, vue.VersVue(milieu).toPoint());
    return;
  }
  FAIL() << nom << " is not on the picture";
}

TEST(Association, FromTheMarksToTheFactorsOfTheNewGeneric) {
  BureauAnalyse bureau;
  Graphe3& forme = bureau.Demander<Graphe3>("mnuGraphe");
  EXPECT_FALSE(essai::Actif(forme, "BoutonAssoc")) << "nothing is marked";
  MarquerALaSouris(forme, "LEC2");
  EXPECT_EQ(Champ(forme, "TextMarques"), "LEC2");
  TaperEtRetour(forme, "TextMarques", "LEC2,LEC9");
  EXPECT_EQ(Champ(forme, "TextMarques"), "LEC2") << "a name that no element has changes nothing";
  EXPECT_EQ(essai::Information(forme), "Aucun élément n'a le nom LEC9.");
  TaperEtRetour(forme, "TextMarques", "sex1, lec2, lec3");
  MarquerALaSouris(forme, "SEX1");
  EXPECT_EQ(Champ(forme, "TextMarques"), "LEC2,LEC3");
  Pilote pilote;
  TaperEtRetour(forme, "TextNouvCol", "LEC1 et plus");
  Cliquer(forme, "BoutonAssoc");
  EXPECT_TRUE(pilote.Vues().empty()) << "nothing is announced under the name of another modality";
  EXPECT_TRUE(essai::Information(forme).startsWith("Le nom court LEC1 du"));

  TaperEtRetour(forme, "TextNouvCol", "Lit peu");
  pilote.Cliquer("Non");
  Cliquer(forme, "BoutonAssoc");
  ASSERT_EQ(pilote.Vues().size(), 1);
  EXPECT_TRUE(
      pilote.Vues()[0].startsWith("Colonnes qui vont être regroupées : LEC2, LEC3\n   sous le nom Lit  (Lit peu)"))
      << pilote.Vues()[0].toStdString();
  EXPECT_FALSE(bureau.Existe("ENR.BRT"));
  const QString commande = essai::CommandeMontree(pilote, forme, "BoutCommandeAssoc");
  EXPECT_TRUE(commande.contains(" modifburt ENQ ") && commande.contains("LEC2,LEC3")) << commande.toStdString();
  pilote.Cliquer("Oui");
  Cliquer(forme, "BoutonAssoc");
  EXPECT_EQ(LignesDe(bureau.Lire("ENR.BRT")), (QStringList{"SEX15032", "SEX20514", "LEC13140", "Lit 2406"}));
  EXPECT_EQ(LignesDe(bureau.Lire("ENQ.BRT")).size(), 5) << "the old generic stays";
  EXPECT_TRUE(bureau.Texte().contains("Le regroupement a pour nom : Lit  Sa fréquence est de  6"));
  EXPECT_TRUE(bureau.Fenetre().windowTitle().contains("ENR"));

  ModifMod* modalites = bureau.Forme<ModifMod>();
  ASSERT_NE(modalites, nullptr);
  EXPECT_EQ(essai::Lignes(*modalites, "ListRecap").last(), "Lit    Lit peu");
  Cliquer(*modalites, "BoutEnreg");
  bureau.Menu("mnuAnecar");
  EXPECT_TRUE(bureau.Texte().trimmed().endsWith("Fin normale du programme")) << bureau.Texte().toStdString();
  EXPECT_TRUE(QString::fromLatin1(bureau.Lire("ENR.FAJ").c_str()).contains("Lit "));
}

}  // namespace
