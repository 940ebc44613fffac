// The request of the crosstabs, by key and mouse.
#include "forms/programmes/crosstab/choixvar.h"

#include <gtest/gtest.h>

#include <QListWidget>
#include <QScrollBar>

#include "forms/pieces/listequestions.h"
#include "forms/programmes/crosstab/bureaudenquete.h"

using namespace quelvar::forms;

namespace {

using essai::Actif;
using essai::Bureau;
using essai::BureauDEnquete;
using essai::Choisir;
using essai::Cliquer;
using essai::Coche;
using essai::Pilote;
using essai::Visible;

QString Titre(const QWidget& forme) { return essai::Etiquette(forme, "TitreNbTab"); }

TEST(ChoixVar, SerieALaSouris) {
  BureauDEnquete bureau;
  ChoixVar& forme = bureau.Demande();
  EXPECT_EQ(essai::Lignes(forme, "ListVar1")[0], "SEX   1  2 Sexe");
  EXPECT_EQ(Titre(forme), "Sélectionner une question");
  EXPECT_FALSE(Actif(forme, "BoutLancerTri"));
  Choisir(forme, "ListVar1", {2, 0});
  Cliquer(forme, "BoutLignePlus");
  Choisir(forme, "ListVar1", {1});
  Cliquer(forme, "BoutColPlus");
  EXPECT_EQ(Bureau::Dans<QListWidget>(forme, "ListVar2").item(1)->text(), "REG   3  3 ");
  EXPECT_EQ(Titre(forme), "Nombre de tableaux demandés : 2");
  EXPECT_FALSE(Actif(forme, "CaseBRT"));
  Cliquer(forme, "EditCompact");
  EXPECT_FALSE(Visible(forme, "FrmTaille"));
  Cliquer(forme, "BoutNRNon");
  Cliquer(forme, "BoutLancerTri");
  EXPECT_TRUE(bureau.Texte().contains("Les non-réponses sont exclues"));
  EXPECT_EQ(bureau.Texte().count("Croisement de la question "), 2);
  EXPECT_TRUE(bureau.Texte().contains("SEX1     3    1    4   75.0 25.0 100  50.0    +    -  "));

  // The form stays, the report grows, and the other way round is one click away.
  EXPECT_TRUE(forme.isVisible());
  Choisir(forme, "ListVar2", {1});
  Cliquer(forme, "BoutLigneMoins");
  Cliquer(forme, "BoutInvers");
  EXPECT_EQ(Bureau::Dans<QListWidget>(forme, "ListVar2").item(0)->text(), "VOT   2  2 Vote");
  Cliquer(forme, "BoutLancerTri");
  EXPECT_EQ(bureau.Texte().count("Croisement de la question "), 3);
  Cliquer(forme, "BoutEffacer");
  EXPECT_EQ(Bureau::Dans<QListWidget>(forme, "ListVar3").count(), 0);
  Cliquer(forme, "BoutNouv");
  EXPECT_EQ(bureau.Forme<ChoixVar>(), nullptr);
  EXPECT_EQ(bureau.Texte().count("Croisement de la question "), 3);
}

// Wherever the longest line stands, it can be read to its end.
TEST(ChoixVar, UneListeTropEtroiteDefile) {
  const std::string longue(200, 'l');
  for (const std::vector<QuestionListee>& lignes : std::vector<std::vector<QuestionListee>>{
           {{0, longue}, {1, "b"}, {2, "c"}}, {{0, "a"}, {1, longue}, {2, "c"}}, {{0, "a"}, {1, longue}}}) {
    QListWidget liste;
    PreparerListe(liste);
    MontrerQuestions(liste, lignes);
    liste.resize(150, 100);
    liste.show();
    QCoreApplication::processEvents();
    const int texte = liste.fontMetrics().horizontalAdvance(QString::fromStdString(longue));
    EXPECT_GE(liste.horizontalScrollBar()->maximum(), texte - liste.viewport()->width());
    EXPECT_EQ(liste.visualItemRect(liste.item(0)).height(), liste.visualItemRect(liste.item(1)).height());
  }
}

TEST(ChoixVar, ControlesSelonLeNiveau) {
  BureauDEnquete debutant(1);
  const ChoixVar& simple = debutant.Demande();
  for (const char* cadre : {"FrmTri", "FrmBloc", "FrmAFC", "FrmGraphe", "FrmDetKhi2"})
    EXPECT_FALSE(Visible(simple, cadre)) << cadre;
  EXPECT_TRUE(Visible(simple, "FrmNR"));
  EXPECT_TRUE(Coche(simple, "EditLarge"));
  Cliquer(simple, "Aide");
  ASSERT_EQ(debutant.ouverts.size(), 1);
  EXPECT_TRUE(debutant.ouverts[0].endsWith("/aide/QuelvarAide.html#8"));

  BureauDEnquete avance(2);
  const ChoixVar& forme = avance.Demande();
  EXPECT_FALSE(Visible(forme, "FrmBloc"));
  EXPECT_FALSE(Visible(forme, "INVL"));
  Cliquer(forme, "BoutOrdreAFC");
  EXPECT_TRUE(Visible(forme, "INVL"));
  EXPECT_TRUE(Visible(forme, "INVC"));
  Cliquer(forme, "BoutTri3");
  EXPECT_TRUE(Visible(forme, "FrmBloc"));
  EXPECT_FALSE(Visible(forme, "FrmAFC"));
  EXPECT_FALSE(Visible(forme, "FrmGraphe"));
  Choisir(forme, "ListVar1", {2});
  Cliquer(forme, "BoutBlocPlus");
  Choisir(forme, "ListVar1", {0});
  Cliquer(forme, "BoutLignePlus");
  Choisir(forme, "ListVar1", {1});
  Cliquer(forme, "BoutColPlus");
  EXPECT_EQ(Titre(forme), "Nombre de tableaux demandés : 4");
  Cliquer(forme, "BoutLancerTri");
  EXPECT_TRUE(avance.Texte().contains("Modalite REG3"));
  EXPECT_FALSE(avance.Texte().contains("PEM du tableau est de     5"));
}

TEST(ChoixVar, AuClavierSeul) {
  BureauDEnquete bureau;
  ChoixVar& forme = bureau.Demande();
  essai::Activer(forme);
  auto& questions = Bureau::Dans<QListWidget>(forme, "ListVar1");
  EXPECT_TRUE(questions.hasFocus());
  QTest::keyClick(&questions, Qt::Key_Home);
  EXPECT_EQ(questions.selectedItems().size(), 1);
  // A button pressed by its letter is released a moment later.
  const auto attendre = [&](const char* liste) {
    return QTest::qWaitFor([&] { return Bureau::Dans<QListWidget>(forme, liste).count() == 1; });
  };
  QTest::keyClick(&questions, Qt::Key_L, Qt::AltModifier);
  EXPECT_TRUE(attendre("ListVar2"));
  QTest::keyClick(&questions, Qt::Key_Down);
  QTest::keyClick(&questions, Qt::Key_C, Qt::AltModifier);
  EXPECT_TRUE(attendre("ListVar3"));
  EXPECT_EQ(Titre(forme), "Nombre de tableaux demandés : 1");
  QTest::keyClick(&questions, Qt::Key_Return);
  EXPECT_TRUE(bureau.Texte().contains("         avec la question Vote VOT"));
  QTest::keyClick(&forme, Qt::Key_Escape);
  EXPECT_EQ(bureau.Forme<ChoixVar>(), nullptr);
}

TEST(ChoixVar, TableauIsoleAvecQuestion) {
  BureauDEnquete bureau;
  bureau.Ecrire("ENQ.MOD", "ancien\r\n");
  const ChoixVar& forme = bureau.Demande();
  Choisir(forme, "ListVar1", {0});
  Cliquer(forme, "BoutLignePlus");
  Choisir(forme, "ListVar1", {1});
  Cliquer(forme, "BoutColPlus");
  Pilote pilote;
  pilote.Cliquer("Non");
  pilote.Cliquer("OK");
  Cliquer(forme, "CaseBRT");
  EXPECT_EQ(pilote.Vues().last(), "Le tableau isolé ne sera pas sauvegardé");
  EXPECT_FALSE(Coche(forme, "CaseBRT"));
  EXPECT_FALSE(Actif(forme, "CaseBRT"));
  EXPECT_EQ(bureau.Lire("ENQ.MOD"), "ancien\r\n");
  Cliquer(forme, "BoutInvers");
  pilote.Cliquer("Oui");
  Cliquer(forme, "CaseBRT");
  EXPECT_EQ(bureau.Lire("ENQ.MOD"), "ancien\r\n") << "replaced by the launch, not by the box";
  Cliquer(forme, "BoutLancerTri");
  EXPECT_FALSE(Coche(forme, "CaseBRT"));
  EXPECT_EQ(bureau.Lire("ENQ.BRT"), "VOT1    3    1\r\nVOT2    1    3\r\n");
}

TEST(ChoixVar, FichierManquant) {
  BureauDEnquete bureau;
  std::filesystem::remove(bureau.Dossier() / "ENQ.DAT");
  bureau.Menu("mnuCroise");
  EXPECT_EQ(bureau.Forme<ChoixVar>(), nullptr);
  EXPECT_TRUE(bureau.Texte().startsWith("Le fichier ENQ.DAT n'existe pas"));
}

}  // namespace
