// The factor plane by key and mouse.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QFileDialog>
#include <QImage>
#include <QRadioButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QToolTip>
#include <QWheelEvent>
#include <array>
#include <map>

#include "core/fichiers/releve.h"
#include "core/fichiers/systeme/marque.h"
#include "forms/programmes/factor/graphe3/plan.h"

using namespace quelvar::factor;
using namespace quelvar::forms;

namespace {

using essai::Bureau;
using essai::Champ;
using essai::Cliquer;
using essai::Image;
using essai::Information;
using essai::Pilote;
using essai::TaperEtRetour;
using quelvar::Couleur;
using quelvar::FormeDessinee;
using quelvar::GenreForme;
using quelvar::Position;
using quelvar::forms::Graphe3;
using quelvar::forms::VueDessin;

// Four columns at the corners of the plane, two individuals, links, a classification.
struct BureauDePlan : Bureau {
  explicit BureauDePlan(bool liens = true) : Bureau(2) {
    Ecrire("ENQ.POS", "ENQ\r\n 2 \r\nSEX   1 2 $Sexe$\r\n");
    Ecrire("ENQ.DAT", "1 $$le mot en son lieu\r\n2\r\n");
    Ecrire("ENQ.MOD",
           "Mon plan\r\n BRT=1 LIGN=6 COL=4 LSUP=2 FMT=1 \r\nA1     Premiere\r\nA2     Deuxieme\r\nB1     Troisieme\r\n"
           "B2   S Quatrieme\r\n");
    Ecrire("ENQ.FAJ",
           "A1    250    800  400    400   10    100    1\r\nA2    250   -800  300    400   20   -100    1\r\n"
           "B1    250   -800  100   -400  600    100    1\r\nB2    250    800   50   -400   60   -100    1\r\n");
    Ecrire("ENQ.FAI",
           "A1    250    800  400    400   10    100    1\r\nA2    250   -800  300    400   20   -100    1\r\n"
           "B1    250   -800  100   -400  600    100    1\r\nB2    250    800   50   -400   60   -100    1\r\n"
           "1       0    300    0    200    0      0    0Pierre\r\n2       0   -300    0   -200    0      0    "
           "0Paule\r\n");
    Ecrire("ENQ.CAH",
           "INDIV = NON\r\n   1    1    2    1    2\r\n   2    3    4    3    4\r\n   3    1    3   -1   -2\r\n"
           "   1    1   2\r\n   2    3   4\r\n   3    1   2   3   4\r\n");
    // 1-2 at 90, 3-4 at 60, 1-3 at 50.
    constexpr std::array<unsigned char, 24> octets = {1, 0, 2,    0,    0, 0, 0xB4, 0x42, 3, 0, 4,    0,
                                                      0, 0, 0x70, 0x42, 1, 0, 3,    0,    0, 0, 0x48, 0x42};
    if (liens) Ecrire("ENQ.PEM", {reinterpret_cast<const char*>(octets.data()), octets.size()});
    Ouvrir();
  }
  Graphe3& Graphe() { return Demander<Graphe3>("mnuGraphe"); }
};

QStringList Ecrits(const QWidget& forme) {
  QStringList textes;
  for (const FormeDessinee& marque : Image(forme).Contenu().Formes())
    if (marque.genre == GenreForme::Texte && marque.id >= 0) textes << QString::fromStdString(marque.texte);
  return textes;
}

std::vector<Couleur> Traits(const QWidget& forme, std::string_view calque) {
  std::vector<Couleur> couleurs;
  const quelvar::Dessin& dessin = Image(forme).Contenu();
  for (const FormeDessinee& marque : dessin.Formes())
    if (marque.genre == GenreForme::Ligne && dessin.Calques()[marque.calque].nom == calque)
      couleurs.push_back(marque.plume.couleur);
  return couleurs;
}

constexpr double kMargeDuCadre = 0.055;  // of the extent of the points, on each side

// What the box around the plane shows.
quelvar::Fenetre Limites(const QWidget& forme) {
  const quelvar::Dessin& dessin = Image(forme).Contenu();
  for (const FormeDessinee& marque : dessin.Formes())
    if (const std::optional<quelvar::Zone>& cadre = dessin.Coupe(marque)) {
      const Position coin = dessin.VersUtilisateur({cadre->x, cadre->y});
      const Position oppose = dessin.VersUtilisateur({cadre->x + cadre->largeur, cadre->y + cadre->hauteur});
      return {coin.x, oppose.x, coin.y, oppose.y};
    }
  return {};
}

QPoint PlaceDe(const QWidget& forme, Position point) {
  const Position page = Image(forme).Contenu().VersPage(point);
  return Image(forme).VersVue({page.x, page.y}).toPoint();
}

TEST(Graphe3, AxesAndPoints) {
  BureauDePlan bureau;
  const Graphe3& forme = bureau.Graphe();
  EXPECT_EQ(forme.windowTitle(), "Graphique non encore enregistré");
  EXPECT_EQ(Ecrits(forme), QStringList({"A1", "A2", "B1", "B2"}));
  const auto limites = [&] { return Limites(forme); };
  EXPECT_NEAR(limites().droite, 800 + kMargeDuCadre * 1600, 1e-9);

  TaperEtRetour(forme, "TextFV", "c");  // the CPF on the second factor: 10 to 600
  EXPECT_NEAR(limites().haut, 600 * (1 + kMargeDuCadre), 1e-9);
  EXPECT_EQ(Champ(forme, "TextFV"), "C");
  TaperEtRetour(forme, "TextFV", "3");
  EXPECT_NEAR(limites().droite, 800 + kMargeDuCadre * 1600, 1e-9);
  TaperEtRetour(forme, "TextFV", "4");  // there are three
  EXPECT_EQ(Champ(forme, "TextFV"), "3");
  EXPECT_TRUE(Information(forme).contains("de 1 à 3"));
  Cliquer(forme, "CheckInvX");
  Cliquer(forme, "InvXY");
  EXPECT_EQ(Champ(forme, "TextFH"), "3");
  EXPECT_TRUE(Bureau::Dans<QCheckBox>(forme, "CheckInvY").isChecked());
  EXPECT_FALSE(Bureau::Dans<QCheckBox>(forme, "CheckInvX").isChecked());

  Cliquer(forme, "CheckLong");
  Cliquer(forme, "Opt3");
  EXPECT_EQ(Ecrits(forme), QStringList({"Quatrieme"}));
  Cliquer(forme, "CheckIndiv");
  EXPECT_EQ(Ecrits(forme), QStringList({"Pierre", "Paule", "Quatrieme"}));
  Cliquer(forme, "Opt2");
  EXPECT_EQ(Ecrits(forme).size(), 3);
  Cliquer(forme, "Opt1");
  TaperEtRetour(forme, "TextBoxVal", "59");
  EXPECT_EQ(Ecrits(forme).size(), 3);  // CPF of factor 3 and factor 1: 400, 300, 100, 50
  Cliquer(forme, "CmdCpfMoins");
  EXPECT_EQ(Champ(forme, "TextBoxVal"), "58");
  TaperEtRetour(forme, "TextBoxVal", "rien");
  EXPECT_EQ(Champ(forme, "TextBoxVal"), "58");
}

TEST(Graphe3, SizeWheelAndDrag) {
  BureauDePlan bureau;
  const Graphe3& forme = bureau.Graphe();
  const auto limites = [&] { return Limites(forme); };
  const quelvar::Fenetre debut = limites();
  Cliquer(forme, "BtFort");
  Cliquer(forme, "OptH");
  Cliquer(forme, "BtPlus");
  EXPECT_NEAR(limites().haut, debut.haut / 1.5, 1e-6);
  EXPECT_NEAR(limites().droite, debut.droite, 1e-6);
  Cliquer(forme, "BoutonRAZ");
  Cliquer(forme, "Command1");
  EXPECT_GT(limites().droite, debut.droite);  // the image has gone to the left
  Cliquer(forme, "BoutonRAZ");

  // Moves that are taken back are none for the command.
  Cliquer(forme, {"BtPlus", "Command3", "Command6", "BtMoins", "BtPlusF", "BtMoinsF"});
  Pilote pilote;
  EXPECT_EQ(essai::CommandeMontree(pilote, forme), "quelvar-batch --niveau 2 graphe ENQ");

  VueDessin& image = Image(forme);
  const QPoint place = PlaceDe(forme, {400, 200});
  QWheelEvent molette(place, image.viewport()->mapToGlobal(place), {}, QPoint(0, 120), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
  QApplication::sendEvent(image.viewport(), &molette);
  EXPECT_NEAR(limites().droite - limites().gauche, (debut.droite - debut.gauche) / 1.25, 1e-6);
  EXPECT_LE((PlaceDe(forme, {400, 200}) - place).manhattanLength(), 2);

  QTest::mousePress(image.viewport(), Qt::LeftButton, {}, place);
  QTest::mouseMove(image.viewport(), place + QPoint(-40, 25));
  QTest::mouseRelease(image.viewport(), Qt::LeftButton, {}, place + QPoint(-40, 25));
  EXPECT_LE((PlaceDe(forme, {400, 200}) - (place + QPoint(-40, 25))).manhattanLength(), 2);

  const double gauche = limites().gauche;
  QTest::keyClick(&image, Qt::Key_Right);  // the plane goes to the right, by a tenth of the view
  EXPECT_LT(limites().gauche, gauche);
  QTest::keyClick(&image, Qt::Key_Left);
  EXPECT_NEAR(limites().gauche, gauche, 1e-6);
  const double etendue = limites().droite - limites().gauche;
  QTest::keyClick(&image, Qt::Key_Plus);
  EXPECT_NEAR(limites().droite - limites().gauche, etendue / 1.25, 1e-6);

  Cliquer(forme, "CheckTaille");
  EXPECT_NEAR(image.Echelle(), image.logicalDpiX() / 72.0, 1e-9);
  Cliquer(forme, "CheckTaille");
  QCoreApplication::processEvents();  // the bars of the view go
  EXPECT_LT(image.Contenu().Largeur() * image.Echelle(), image.viewport()->width() + 1);
}

TEST(Graphe3, ClicksInformAndMark) {
  BureauDePlan bureau;
  const Graphe3& forme = bureau.Graphe();
  Cliquer(forme, "CheckIndiv");
  QWidget* vue = Image(forme).viewport();
  QTest::mouseClick(vue, Qt::LeftButton, {}, PlaceDe(forme, {-800, -400}));
  EXPECT_EQ(Information(forme), "Troisieme");
  QTest::mouseClick(vue, Qt::LeftButton, {}, PlaceDe(forme, {300, 200}));
  EXPECT_EQ(Information(forme), "Pierre\nle mot en son lieu");
  QTest::mouseClick(vue, Qt::LeftButton, {}, PlaceDe(forme, {-300, -200}));
  EXPECT_EQ(Information(forme), "Paule\nPas de concordance disponible");

  const auto ouvert = [&](const char* nom) { return !Bureau::Dans<QWidget>(forme, nom).isHidden(); };
  EXPECT_FALSE(ouvert("TextNouvCol"));
  QTest::mouseClick(vue, Qt::RightButton, {}, PlaceDe(forme, {800, 400}));
  EXPECT_TRUE(ouvert("TextNouvCol") && ouvert("Label8"));
  EXPECT_FALSE(ouvert("TextNouvNom"));
  QTest::mouseClick(vue, Qt::RightButton, {}, PlaceDe(forme, {300, 200}));
  EXPECT_TRUE(ouvert("TextNouvNom") && ouvert("Label2"));
  QTest::mouseClick(vue, Qt::RightButton, {}, PlaceDe(forme, {800, 400}));
  EXPECT_FALSE(ouvert("TextNouvCol"));
  EXPECT_EQ(Image(forme).infobulleDeLaPlace({-50, -50}), "");
  const Position page = Image(forme).Contenu().VersPage({800, -400});
  EXPECT_EQ(Image(forme).infobulleDeLaPlace({page.x, page.y}),
            "B2  Quatrieme\nF1=800 CPF=50   F2=-400 CPF=60   F3=-100 CPF=1");
}

TEST(Graphe3, LinksAndTree) {
  BureauDePlan bureau;
  const Graphe3& forme = bureau.Graphe();
  Cliquer(forme, "CheckPEM");
  EXPECT_EQ(Traits(forme, "liens").size(), 3U);
  EXPECT_TRUE(Traits(forme, "axes").empty());
  Cliquer(forme, "CheckProg");
  EXPECT_EQ(Ecrits(forme), QStringList({"A1", "A2"}));
  Cliquer(forme, "CmdProgPlus");
  EXPECT_EQ(Traits(forme, "liens").size(), 2U);
  Cliquer(forme, "CheckProg");
  TaperEtRetour(forme, "EcMinVal", "50,5");
  EXPECT_EQ(Traits(forme, "liens").size(), 2U);
  TaperEtRetour(forme, "EcMinVal", "51");
  Cliquer(forme, "CmdFiltrMoinsMin");
  EXPECT_EQ(Traits(forme, "liens").size(), 3U);
  TaperEtRetour(forme, "EcSupVal", "89");
  EXPECT_EQ(Traits(forme, "liens").size(), 2U);
  Cliquer(forme, "BtVal");
  bool valeur = false;
  for (const FormeDessinee& marque : Image(forme).Contenu().Formes()) valeur = valeur || marque.texte == "60.0";
  EXPECT_TRUE(valeur);
  EXPECT_FALSE(bureau.Existe("ENQ.net"));
  Cliquer(forme, "FichPajek");
  EXPECT_TRUE(bureau.Existe("ENQ.net"));
  EXPECT_FALSE(Bureau::Dans<QWidget>(forme, "ChkLgnPEM").isEnabled());  // no .PEL
}

TEST(Graphe3, LinksNeedTheirFile) {
  BureauDePlan bureau(false);
  const Graphe3& forme = bureau.Graphe();
  const auto& onglets = Bureau::Dans<QTabWidget>(forme, "Onglets");
  EXPECT_FALSE(onglets.isTabVisible(onglets.indexOf(&Bureau::Dans<QWidget>(forme, "OngletPEM"))));
}

TEST(Graphe3, Classification) {
  BureauDePlan bureau;
  const Graphe3& forme = bureau.Graphe();
  Cliquer(forme, "CheckCAH");
  EXPECT_EQ(Champ(forme, "ValCAH"), "3");
  EXPECT_EQ(Champ(forme, "ValNCla"), "1");
  EXPECT_EQ(Traits(forme, "cah").size(), 3U);
  TaperEtRetour(forme, "ValNCla", "2");
  EXPECT_EQ(Champ(forme, "ValCAH"), "2");
  Cliquer(forme, "BtCouleursOui");
  EXPECT_EQ(Traits(forme, "cah"), (std::vector{Couleur::Bleu, Couleur::Vert}));
  Cliquer(forme, "CmdCahMoins");
  EXPECT_EQ(Ecrits(forme), QStringList({"A1", "A2"}));
  Cliquer(forme, "CmdCahPlus");
  Pilote pilote;
  EXPECT_TRUE(essai::CommandeMontree(pilote, forme, "BoutCommandeCAH").endsWith(" ward-coupe ENQ niveau=2"));
  Cliquer(forme, "BoutonCAH");
  EXPECT_TRUE(bureau.Texte().contains("Aggrégation niveau    2\n$$G 1\n"));
  EXPECT_NE(bureau.Forme<Graphe3>(), nullptr);
}

// A tree of another table is told when it is asked for, in a box and in the report, and its box goes off again.
TEST(Graphe3, TreeOfAnotherTable) {
  BureauDePlan bureau;
  bureau.Ecrire("ENQ.CAH", "INDIV = NON\r\n   1    1    2    1    2\r\n   1    1   2\r\n");
  const Graphe3& forme = bureau.Graphe();  // no box: nobody has asked for the tree
  EXPECT_FALSE(bureau.Existe("ENQ.PRT"));
  Pilote pilote;
  pilote.Cliquer("OK");
  Cliquer(forme, "CheckCAH");
  EXPECT_TRUE(pilote.Vues().last().startsWith("l'arbre de ENQ.CAH n'est pas celui de ce tableau"));
  EXPECT_FALSE(essai::Coche(forme, "CheckCAH"));
  EXPECT_TRUE(bureau.Texte().contains("*** Attention : l'arbre de ENQ.CAH"));
  EXPECT_FALSE(bureau.Existe("ENQ.PRT"));  // nothing was launched
  Cliquer(forme, "BoutonQuitter");
  EXPECT_TRUE(QTest::qWaitFor([&] { return bureau.Texte().contains("*** Attention : l'arbre de ENQ.CAH"); }));
  EXPECT_FALSE(bureau.Existe("ENQ.PRT"));
}

// What is missing is said under the picture, and the box goes off again.
TEST(Graphe3, EllipsesWithoutTheirFiles) {
  BureauDePlan bureau;
  const Graphe3& forme = bureau.Graphe();
  Cliquer(forme, "CheckEllipseM");
  EXPECT_FALSE(Bureau::Dans<QCheckBox>(forme, "CheckEllipseM").isChecked());
  EXPECT_TRUE(Information(forme).contains("Le fichier ENQ.AFC n'existe pas"));
}

// Two individuals who have A1, after an analysis of the logical coding.
struct BureauDEllipses : BureauDePlan {
  BureauDEllipses() {
    Ecrire("ENQ.AFC",
           "Le nombre de facteurs a extraire est de  3\r\nValeur propre =  0.25\r\nValeur propre =  0.16\r\n"
           "Valeur propre =  0.09\r\n");
    Ecrire("ENQ.FI2",
           "1     100    300.0000  111    200.0000  111      0.0000    0\r\n"
           "2     100   -300.0000  111   -200.0000  111     50.0000    0\r\n");
    Ecrire("ENQ.CDG", "1   1010\r\n2   1001\r\n");
    Ecrire("ENQ.PRT", "ancien rapport\r\n");
  }
  // Names, bytes and instants of the files.
  std::map<std::string, std::pair<std::string, std::filesystem::file_time_type>> Fichiers() const {
    std::map<std::string, std::pair<std::string, std::filesystem::file_time_type>> fichiers;
    for (const auto& fichier : std::filesystem::directory_iterator(Dossier())) {
      const std::string nom = fichier.path().filename().string();
      fichiers[nom] = {fichier.is_regular_file() ? Lire(nom.c_str()) : "", fichier.last_write_time()};
    }
    return fichiers;
  }
};

TEST(Graphe3, OpeningAndRedrawingWriteNoFile) {
  BureauDEllipses bureau;
  const auto avant = bureau.Fichiers();
  const auto intact = [&](const QString& geste) { EXPECT_TRUE(bureau.Fichiers() == avant) << geste.toStdString(); };
  const Graphe3& forme = bureau.Graphe();
  intact("opening");
  TaperEtRetour(forme, "TextMarques", "A1");
  Cliquer(forme, {"CheckEllipseC", "CheckEllipseM"});
  EXPECT_FALSE(Traits(forme, "ellipses").empty());
  intact("ellipses");
  // With them on the picture: every box, choice and arrow of the form but the one that asks for a network file.
  for (const QAbstractButton* bouton : forme.findChildren<QAbstractButton*>()) {
    const QString nom = bouton->objectName();
    const bool choix = bouton->isCheckable() || bouton->inherits("QToolButton");
    const bool deQt = nom.isEmpty() || nom.startsWith("qt_") || nom.startsWith("Scroll");
    if (!choix || deQt || nom.startsWith("CheckEllipse") || nom == "FichPajek" || !bouton->isEnabled()) continue;
    Cliquer(forme, nom.toUtf8().constData());
    intact(nom);
  }
  Cliquer(forme, "InvXY");
  TaperEtRetour(forme, "TextFV", "3");
  TaperEtRetour(forme, "TextMarques", "A1 A2");
  intact("axes and marks");
  EXPECT_FALSE(Traits(forme, "ellipses").empty());
  QTest::mouseClick(&Image(forme), Qt::LeftButton, {}, PlaceDe(forme, {0, 0}));
  intact("click");
  Cliquer(forme, "FichPajek");
  EXPECT_EQ(bureau.Fichiers().size(), avant.size() + bureau.Existe("ENQ.net"));
}

// The report of the ellipses is that of the run which ends with the form.
TEST(Graphe3, EllipsesAreReportedAtTheEnd) {
  BureauDEllipses bureau;
  const Graphe3& forme = bureau.Graphe();
  TaperEtRetour(forme, "TextMarques", "A1");
  Cliquer(forme, {"CheckEllipseM", "BoutonQuitter"});
  EXPECT_TRUE(QTest::qWaitFor([&] { return bureau.Texte().contains("Graphique factoriel + Ellipse(s)"); }));
  const std::string rapport = bureau.Lire("ENQ.PRT");
  EXPECT_NE(rapport.find("= A1   effectif=   2"), std::string::npos) << rapport;
  EXPECT_NE(rapport.find("Kappa=1.18 Pourcentage d'individus : 50.0%"), std::string::npos) << rapport;
  EXPECT_EQ(rapport.find("ancien rapport"), std::string::npos);
}

// A failure whose place is known says it where the user looks.
TEST(Graphe3, AFailureKeepsItsPlace) {
  BureauDEllipses bureau;
  bureau.Ecrire("ENQ.CDG", "1   1010\r\n");  // the second individual is not there
  const Graphe3& forme = bureau.Graphe();
  TaperEtRetour(forme, "TextMarques", "A1");
  Pilote pilote;
  pilote.Cliquer("OK");
  Cliquer(forme, "CheckEllipseC");
  for (const QString& texte : {pilote.Vues().last(), Information(forme)})
    EXPECT_TRUE(texte.contains("L'entrée dépasse la fin de fichier (ENQ.CDG, ligne ")) << texte.toStdString();
}

TEST(Graphe3, SavedPictures) {
  BureauDePlan bureau;
  const Graphe3& forme = bureau.Graphe();
  Pilote pilote;
  Bureau::Dans<QSpinBox>(forme, "Resolution").setValue(100);
  pilote.Cliquer("OK");
  Cliquer(forme, "BoutonEnreg");
  EXPECT_EQ(pilote.Vues().last(), "Graphique enregistré sous le nom : ENQFac.bmp");
  EXPECT_EQ(forme.windowTitle(), "ENQFac.bmp");
  const QImage image(QString::fromStdString((bureau.Dossier() / "ENQFac.bmp").string()));
  EXPECT_NEAR(image.width(), Image(forme).Contenu().Largeur() * 100 / 72, 1);
  pilote.Choisir(QString::fromStdString((bureau.Dossier() / "plan.svg").string()));
  pilote.Cliquer("OK");
  Cliquer(forme, "BoutonEnregSous");
  EXPECT_NE(bureau.Lire("plan.svg").find("Mon plan"), std::string::npos);
  EXPECT_EQ(forme.windowTitle(), "plan.svg");
}

TEST(Graphe3, LeavingShowsTheReport) {
  BureauDePlan bureau;
  const Graphe3& forme = bureau.Graphe();
  Cliquer(forme, "BoutonQuitter");
  EXPECT_EQ(bureau.Forme<Graphe3>(), nullptr);
  EXPECT_TRUE(QTest::qWaitFor([&] { return bureau.Texte().contains("Il y a  1  modalites supplementaires"); }));

  std::filesystem::remove(bureau.Dossier() / "ENQ.FAJ");
  bureau.Menu("mnuGrapheText");
  EXPECT_EQ(bureau.Forme<Graphe3>(), nullptr);
  EXPECT_TRUE(bureau.Texte().startsWith("*** Le fichier des coordonnees factorielles ENQ.FAJ n'existe pas"));
}

struct CasDeCommande {
  const char* nom;
  std::vector<std::pair<const char*, const char*>> gestes;  // a control, and what is typed there
  const char* contient;                                     // of the line, ended by ";"
};

const CasDeCommande kCommandes[] = {
    {"Reglages",
     {{"TextFV", "3"},
      {"CheckInvX", nullptr},
      {"PointExact", nullptr},
      {"CheckLong", nullptr},
      {"CheckInfo", nullptr},
      {"TextBoxVal", "15"},
      {"Option3", nullptr},
      {"Check1", nullptr}},
     "graphe ENQ vertical=3 inverserx=oui pointexact=oui longs=oui information=oui niveaucpf=15 caracteres=grands "
     "gras=oui ellipses=mediane marques=A1"},
    {"AxesEchanges",
     {{"CheckContrib", nullptr}, {"CheckInvX", nullptr}, {"InvXY", nullptr}, {"Opt2", nullptr}, {"Opt1", nullptr}},
     "graphe ENQ horizontal=2 vertical=1 inversery=oui contributions=oui ellipses=mediane marques=A1;"},
    // The plane keeps its limits when fewer points or more are shown, and the mouse moves them by what it likes.
    {"Cadre",
     {{"Opt3", nullptr},
      {"CheckIndiv", nullptr},
      {"BtFaible", nullptr},
      {"OptL", nullptr},
      {"BtPlus", nullptr},
      {"BtPlusF", nullptr},
      {"Command3", nullptr}},
     "individus=oui points=supplementaires ellipses=mediane marques=A1 zoomlargeur="},
    {"Liens",
     {{"CheckPEM", nullptr},
      {"BtVal", nullptr},
      {"BtNVal", nullptr},
      {"CheckArbrMin", nullptr},
      {"CheckProg", nullptr},
      {"CmdProgPlus", nullptr},
      {"EcMinVal", "50,5"},
      {"FichPajek", nullptr}},
     "graphe ENQ pem=oui progressif=2 ecmin=50.5 arbre=oui pajek=oui ellipses"},
    {"Classes",
     {{"CheckCAH", nullptr}, {"ValCAH", "2"}, {"BtCouleursOui", nullptr}, {"BtCouleursOui", nullptr}},
     "graphe ENQ cah=couleurs niveau=2 tirage=1 ellipses"},
    // Boxes without effect while the one that they depend on is not ticked.
    {"CasesSansEffet",
     {{"BtVal", nullptr}, {"CheckArbrMin", nullptr}, {"BtCouleursOui", nullptr}, {"FichPajek", nullptr}},
     "graphe ENQ ellipses=mediane marques=A1;"},
};

// The line that the form shows makes the picture, the network and the report that the form makes.
TEST(Graphe3, LaCommandeFaitCeQueFaitLeFormulaire) {
  for (const CasDeCommande& cas : kCommandes) {
    SCOPED_TRACE(cas.nom);
    BureauDEllipses bureau;
    const essai::CopieDuDossier avant(bureau);
    const Graphe3& forme = bureau.Graphe();
    TaperEtRetour(forme, "TextMarques", "A1");
    Cliquer(forme, "CheckEllipseM");
    for (const auto& [controle, texte] : cas.gestes) {
      if (texte == nullptr) Cliquer(forme, controle);
      else TaperEtRetour(forme, controle, texte);
    }
    Pilote pilote;
    const QString commande = essai::FaitCommeLaCommande(avant, bureau, pilote, forme, [&] {
      pilote.Choisir(QString::fromStdString((bureau.Dossier() / "ENQFac.svg").string()));
      pilote.Cliquer("OK");
      Cliquer(forme, {"BoutonEnregSous", "BoutonQuitter"});
      EXPECT_TRUE(QTest::qWaitFor([&] { return bureau.Texte().contains("Graphique factoriel + Ellipse(s)"); }));
    });
    EXPECT_TRUE((commande + ";").contains(cas.contient)) << commande.toStdString();
  }
}

// What a killed run has left is finished by whoever writes next, and told.
TEST(Graphe3, LeReseauDitCeQuIlRepare) {
  BureauDePlan bureau;
  const Graphe3& forme = bureau.Graphe();
  Cliquer(forme, "CheckPEM");
  bureau.Ecrire("ENQ.CDG", "1   1010\r\n");
  quelvar::EntreeDeReleve entree;
  entree.genre = quelvar::GenreDEntree::Efface;
  entree.cible = bureau.Dossier() / "ENQ.CDG";
  entree.provisoire = bureau.Dossier() / "ENQ.CDG~";
  ASSERT_TRUE(quelvar::NoterEtat(entree.cible, entree.noeud, entree.instant));
  quelvar::EcrireReleve(quelvar::CheminDeReleve(bureau.Dossier(), "ENQ"), {quelvar::AmorceDuSysteme(), {entree}},
                        false);
  Pilote pilote;
  pilote.Cliquer("OK");
  Cliquer(forme, "FichPajek");
  EXPECT_TRUE(pilote.Vues().join("").contains("ceux-ci sont effacés : ENQ.CDG"));
  EXPECT_TRUE(bureau.Existe("ENQ.net") && !bureau.Existe("ENQ.CDG"));
}

// A disk that is full leaves the former network, tells which file, and takes the box off.
TEST(Graphe3, LeReseauDAvantResteSurUnDisquePlein) {
  BureauDePlan bureau;
  bureau.Ecrire("ENQ.net", "ancien\r\n");
  const Graphe3& forme = bureau.Graphe();
  Cliquer(forme, "CheckPEM");
  Pilote pilote;
  pilote.Cliquer("OK");
  {
    const essai::DisquePlein plein(10);
    Cliquer(forme, "FichPajek");
  }
  EXPECT_TRUE(pilote.Vues().last().contains("ENQ.net ne peut pas être écrit : Disque plein"))
      << pilote.Vues().last().toStdString();
  EXPECT_FALSE(essai::Coche(forme, "FichPajek"));
  EXPECT_EQ(bureau.Lire("ENQ.net"), "ancien\r\n");
}

}  // namespace
