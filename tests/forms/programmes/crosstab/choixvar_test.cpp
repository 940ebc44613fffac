// The request of the crosstabs and the picture of one table, by key and mouse.
#include "forms/programmes/crosstab/choixvar.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>

#include "forms/images/rendudessin.h"
#include "forms/images/vuedessin.h"
#include "forms/pilote.h"
#include "forms/programmes/crosstab/graphe2.h"

using namespace quelvar::forms;

namespace {

using essai::Actif;
using essai::Bureau;
using essai::Cliquer;
using essai::Coche;
using essai::Pilote;
using essai::Visible;
using quelvar::forms::ChoixVar;
using quelvar::forms::Graphe2;
using quelvar::forms::VueDessin;

// Eight individuals: SEX x VOT 3 1 / 1 3; REG has three codes.
struct BureauDEnquete : Bureau {
  explicit BureauDEnquete(int niveau = 2) : Bureau(niveau) {
    Ecrire("ENQ.POS", "ENQ\r\n 8 \r\nSEX   1 2 $Sexe$\r\nVOT   2 2 $Vote$\r\nREG   3 3\r\n");
    std::filesystem::create_directories(DossierProgramme() / "aide");
    essai::EcrireOctets(DossierProgramme() / "aide" / "QuelvarAide.html", "<h2 id=\"8\">Tri</h2>");
    Ecrire("ENQ.DAT", "111\r\n112\r\n113\r\n121\r\n211\r\n222\r\n223\r\n221\r\n");
    Ouvrir();
  }
  ChoixVar& Demande() { return Demander<ChoixVar>("mnuCroise"); }
};

// Chooses these rows of a list as a click and control clicks do.
void Choisir(const QWidget& forme, const char* liste, const QList<int>& rangs) {
  auto& lignes = Bureau::Dans<QListWidget>(forme, liste);
  lignes.clearSelection();
  for (const int rang : rangs)
    QTest::mouseClick(lignes.viewport(), Qt::LeftButton, rang == rangs.first() ? Qt::NoModifier : Qt::ControlModifier,
                      lignes.visualItemRect(lignes.item(rang)).center());
}

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
  ASSERT_TRUE(QTest::qWaitForWindowActive(&forme));
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

// One table with its picture, opened by the launch.
struct BureauDeGraphe : BureauDEnquete {
  BureauDeGraphe() {
    const ChoixVar& forme = Demande();
    Cliquer(forme, "BoutUnSeul");
    Choisir(forme, "ListVar1", {0});
    Cliquer(forme, "BoutLignePlus");
    Choisir(forme, "ListVar1", {1});
    Cliquer(forme, "BoutColPlus");
    Cliquer(forme, "BoutLancerTri");
  }
  Graphe2& Graphe() {
    Graphe2* forme = Forme<Graphe2>();
    if (forme == nullptr) throw std::runtime_error("the picture did not open");
    return *forme;
  }
};

TEST(Graphe2, TextesDeplacesEtTailles) {
  BureauDeGraphe bureau;
  const Graphe2& forme = bureau.Graphe();
  auto& vue = Bureau::Dans<VueDessin>(forme, "Pict2");
  auto& liste = Bureau::Dans<QListWidget>(forme, "ListVar");
  EXPECT_EQ(forme.windowTitle(), "Graphique non encore enregistré");
  EXPECT_EQ(liste.item(0)->text(), "Sexe et Vote");
  EXPECT_EQ(Bureau::Dans<QLabel>(forme, "Coordonnees").text().count('\n'), 1);
  const auto titre = [&] { return vue.Contenu().SurPage(vue.Contenu().Formes().front()); };
  const auto depart = titre();
  Cliquer(forme, "BtFaible");
  Cliquer(forme, "Command4");
  EXPECT_DOUBLE_EQ(titre().y, depart.y + 1);

  // The mouse takes the title itself: a click chooses it, a drag moves it.
  liste.setCurrentRow(2);
  const QPoint place = vue.VersVue(QPointF(depart.x + 10, depart.y - 2)).toPoint();
  QTest::mousePress(vue.viewport(), Qt::LeftButton, {}, place);
  EXPECT_EQ(liste.currentRow(), 0);
  QTest::mouseMove(vue.viewport(), place + QPoint(30, 12));
  QTest::mouseRelease(vue.viewport(), Qt::LeftButton, {}, place + QPoint(30, 12));
  EXPECT_NEAR(titre().x, depart.x + 30 / vue.Echelle(), 0.01);

  const double largeur = vue.Contenu().Largeur();
  Cliquer(forme, "BtPlus");
  EXPECT_GT(vue.Contenu().Largeur(), largeur);
  Cliquer(forme, "BoutonRAZ");
  EXPECT_DOUBLE_EQ(vue.Contenu().Largeur(), largeur);
  EXPECT_DOUBLE_EQ(titre().x, depart.x);
}

// The line draws the picture as it came; what the mouse did since is told behind it.
TEST(Graphe2, VoirLaCommande) {
  BureauDeGraphe bureau;
  const essai::DossierTemporaire copie;
  std::filesystem::copy(bureau.Dossier(), copie.Chemin(), std::filesystem::copy_options::recursive);
  Graphe2& forme = bureau.Graphe();
  essai::VerifierControles(forme);
  Pilote pilote;
  const auto commande = [&] { return essai::CommandeMontree(pilote, forme); };
  const QString ligne = commande();
  pilote.Choisir(QString::fromStdString((bureau.Dossier() / "ENQ.svg").string()));
  pilote.Cliquer("OK");
  Cliquer(forme, "BoutonEnregSous");
  ASSERT_TRUE(ligne.startsWith("quelvar-batch ")) << ligne.toStdString();
  const QString shell = "cd '" + QString::fromStdString(copie.Chemin().string()) + "' && " QUELVAR_BATCH +
                        ligne.mid(QString("quelvar-batch").size()) + " >/dev/null 2>&1";
  ASSERT_EQ(std::system(shell.toUtf8().constData()), 0) << ligne.toStdString();
  EXPECT_EQ(quelvar::LireOctets(copie.Chemin() / "ENQ.svg"), bureau.Lire("ENQ.svg")) << ligne.toStdString();
  Cliquer(forme, "BtPlus");
  EXPECT_TRUE(commande().endsWith("# sans les retouches de l'image"));
  Cliquer(forme, "BoutonRAZ");
  EXPECT_EQ(commande(), ligne);
}

TEST(Graphe2, EnregistreSousSonNom) {
  BureauDeGraphe bureau;
  Graphe2& forme = bureau.Graphe();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&forme));
  Pilote pilote;
  const auto accepterSurLaForme = [&](QDialog& boite) {
    EXPECT_EQ(boite.parentWidget(), &forme);  // the box leaves the picture in front
    boite.accept();
  };
  pilote.Choisir(QString::fromStdString((bureau.Dossier() / "figure.svg").string()));
  pilote.Faire(accepterSurLaForme);
  Cliquer(forme, "BoutonEnregSous");
  EXPECT_EQ(forme.windowTitle(), "figure.svg");
  EXPECT_TRUE(bureau.Lire("figure.svg").starts_with("<?xml"));
  // A name without extension gets that of the filter, PNG at first; what bears it is not replaced unasked.
  const QString sans = QString::fromStdString((bureau.Dossier() / "figure").string());
  bureau.Ecrire("figure.png", "former");
  pilote.Choisir(sans);
  pilote.Cliquer("Non");
  Cliquer(forme, "BoutonEnregSous");
  EXPECT_EQ(bureau.Lire("figure.png"), "former");
  pilote.Choisir(sans + ".gif");
  pilote.Cliquer("OK");
  Cliquer(forme, "BoutonEnregSous");
  EXPECT_TRUE(
      pilote.Vues().last().endsWith("figure.gif ne peut pas être écrit : une image est un fichier .png, .svg, "
                                    ".pdf ou .bmp"))
      << pilote.Vues().last().toStdString();
  pilote.Faire(accepterSurLaForme);
  Cliquer(forme, "BoutonEnreg");
  EXPECT_EQ(pilote.Vues().last(), "Graphique enregistré sous le nom : ENQTab.bmp");
  EXPECT_EQ(forme.windowTitle(), "ENQTab.bmp");
  const QImage image(QString::fromStdString((bureau.Dossier() / "ENQTab.bmp").string()));
  ASSERT_FALSE(image.isNull());
  EXPECT_EQ(image.pixelColor(0, 0), QColor(Qt::white));
  bool encre = false;
  for (int y = 0; y < image.height() && !encre; ++y)
    for (int x = 0; x < image.width() && !encre; ++x) encre = image.pixelColor(x, y).lightness() < 60;
  EXPECT_TRUE(encre);
  Cliquer(forme, "BoutonNouv");
  EXPECT_EQ(bureau.Forme<Graphe2>(), nullptr);
  EXPECT_NE(bureau.Forme<ChoixVar>(), nullptr);
}

TEST(RenduDessin, QuatreFormats) {
  quelvar::Dessin dessin(100, 50);
  dessin.Texte({10, 20}, "abc");
  const std::pair<const char*, std::string_view> debuts[] = {
      {"a.bmp", "BM"}, {"a.png", "\x89PNG"}, {"a.SVG", "<?xml"}, {"a.pdf", "%PDF"}};
  for (const auto& [fichier, debut] : debuts)
    EXPECT_TRUE(quelvar::forms::OctetsDuDessin(fichier, dessin).starts_with(debut)) << fichier;
  EXPECT_THROW(quelvar::forms::OctetsDuDessin("a.gif", dessin), quelvar::Erreur);
}

TEST(VueDessin, ZoomAutourDeLaSouris) {
  VueDessin vue;
  vue.resize(400, 300);
  vue.Montrer(quelvar::Dessin(800, 600));
  vue.show();
  EXPECT_LT(vue.Echelle(), 0.52);  // shown whole
  vue.Zoomer(8);
  const QPointF place(120, 80);
  const QPointF avant = vue.VersPage(place);
  QWheelEvent molette(place, vue.viewport()->mapToGlobal(place), {}, QPoint(0, 120), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
  QApplication::sendEvent(vue.viewport(), &molette);
  EXPECT_NEAR(vue.VersPage(place).x(), avant.x(), 1);
  EXPECT_NEAR(vue.VersPage(place).y(), avant.y(), 1);
  QTest::keyClick(&vue, Qt::Key_0);
  EXPECT_LT(vue.Echelle(), 0.52);
}

}  // namespace
