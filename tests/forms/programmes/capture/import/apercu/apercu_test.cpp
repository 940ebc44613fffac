// The import of a file that the user brings: what he sees of it, what he changes, and what is written.
#include "forms/programmes/capture/import/apercu/apercu.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QScreen>
#include <QTableView>
#include <QTreeWidget>
#include <map>

#include "capture/apercu/import.h"
#include "forms/pilote.h"
#include "forms/programmes/capture/import/fimport.h"
#include "forms/programmes/capture/import/fimportcsv.h"
#include "forms/programmes/capture/import/ouverture.h"
#include "forms/programmes/capture/import/source.h"
#include "support/classeurs.h"

using namespace quelvar::forms;

namespace {

using essai::Actif;
using essai::Bureau;
using essai::Champ;
using essai::Cliquer;
using essai::Etiquette;
using essai::Pilote;
using essai::Taper;
using essai::Visible;

constexpr std::string_view kCodes = "NUM;SEX Sexe;AGE Age\r\n1;1;2\r\n2;2;3\r\n3;1;1\r\n";
// One column of each kind that a survey on the web brings.
constexpr std::string_view kEnquete =
    "Sexe;Age;Avis;Langues\r\n"
    "Femme;23;1;fr, en\r\nHomme;41;2;fr\r\nNSP;35;1;en\r\nFemme;67;3;fr, en\r\nHomme;52;2;fr\r\nFemme;18;1;en\r\n";

struct BureauNeuf : Bureau {
  explicit BureauNeuf(std::string_view contenu, const char* nom = "mon enquête.csv") : Bureau(1, "AVANT") {
    fichier = Dossier() / nom;
    essai::EcrireOctets(fichier, contenu);
    Ouvrir();
  }
  ApercuImport& Apercevoir() {
    ImporterFichier(Fenetre().ServicesDesFormes(), fichier);
    auto* forme = Forme<ApercuImport>();
    if (forme == nullptr) throw std::runtime_error("no preview");
    return *forme;
  }
  std::map<std::string, std::string> Etat() const {
    std::map<std::string, std::string> etat;
    for (const auto& entree : std::filesystem::directory_iterator(Dossier()))
      if (entree.is_regular_file()) etat[entree.path().filename()] = quelvar::LireOctets(entree);
    return etat;
  }
  std::filesystem::path fichier;
};

QString Cellule(ApercuImport& forme, const char* table, int ligne, int colonne) {
  const QAbstractItemModel& modele = *Bureau::Dans<QTableView>(forme, table).model();
  return modele.index(ligne, colonne).data().toString();
}

void PrendreColonne(ApercuImport& forme, int ligne) {
  auto& table = Bureau::Dans<QTableView>(forme, "Colonnes");
  table.setCurrentIndex(table.model()->index(ligne, 0));
}

// Writes a short name where the focus is, and leaves the field.
void Nommer(ApercuImport& forme, const char* nom) {
  essai::Activer(forme);
  auto& champ = Bureau::Dans<QLineEdit>(forme, "TextNom");
  champ.setFocus();
  champ.selectAll();
  QTest::keyClicks(&champ, QString::fromLatin1(nom));
  QTest::keyClick(&champ, Qt::Key_Tab);
}

void PrendreGenre(ApercuImport& forme, const char* libelle) {
  auto& genres = Bureau::Dans<QComboBox>(forme, "ComboGenre");
  const int rang = genres.findText(QString::fromUtf8(libelle));
  ASSERT_GE(rang, 0) << libelle;
  genres.setCurrentIndex(rang);
  emit genres.activated(rang);
}

// Drags the file of the test to the main window; whether it was taken.
bool Deposer(BureauNeuf& bureau) {
  QMimeData donnees;
  donnees.setUrls({QUrl::fromLocalFile(QString::fromStdString(bureau.fichier.string()))});
  QWidget& texte = *Bureau::Dans<QPlainTextEdit>(bureau.Fenetre(), "Text1").viewport();
  QDragEnterEvent entree({5, 5}, Qt::CopyAction, &donnees, Qt::LeftButton, {});
  QApplication::sendEvent(&texte, &entree);
  QDropEvent depot({5, 5}, Qt::CopyAction, &donnees, Qt::LeftButton, {});
  QApplication::sendEvent(&texte, &depot);
  QCoreApplication::processEvents();
  return entree.isAccepted();
}

}  // namespace

// A file of codes: three Return keys from the menu to the survey.
TEST(ApercuImport, DesCodesAuClavierSeul) {
  BureauNeuf bureau(kCodes);
  SourceImport& source = bureau.Demander<SourceImport>("mnuImport");
  auto& fichiers = Bureau::Dans<QTreeWidget>(source, "Fichiers");
  ASSERT_EQ(fichiers.topLevelItemCount(), 1);
  EXPECT_EQ(fichiers.topLevelItem(0)->text(0), "mon enquête.csv");
  QTest::keyClick(&fichiers, Qt::Key_Return);
  auto* apercu = bureau.Forme<ApercuImport>();
  ASSERT_NE(apercu, nullptr);
  EXPECT_EQ(Champ(*apercu, "TextGenerique"), "MONENQUETE");
  EXPECT_TRUE(Etiquette(*apercu, "LabelBilan")
                  .startsWith("Tout va bien : 2 colonnes de codes et le numéro de l'individu, 3 individus."))
      << Etiquette(*apercu, "LabelBilan").toStdString();
  EXPECT_FALSE(bureau.Existe("MONENQUETE.DAT")) << "nothing is written before";
  QTest::keyClick(apercu, Qt::Key_Return);
  EXPECT_EQ(bureau.Forme<ApercuImport>(), nullptr);
  EXPECT_EQ(bureau.Lire("MONENQUETE.DAT"), "112\r\n223\r\n311\r\n");
  EXPECT_EQ(bureau.Lire("MONENQUETE.POS"), "MONENQUETE\r\n 3 \r\nSEX   2 2 $SEX Sexe$\r\nAGE   3 3 $AGE Age$\r\n");
  EXPECT_EQ(bureau.Lire("MONENQUETE.CSV"), kCodes) << "the file beside, as it was";
  EXPECT_EQ(bureau.Fenetre().ServicesDesFormes().session.generique, "MONENQUETE");
  EXPECT_EQ(bureau.Fenetre().ServicesDesFormes().session.individus, 3);
  EXPECT_TRUE(bureau.Lire("qvr2.ini").starts_with("MONENQUETE\r\n"));
}

TEST(ApercuImport, CeQueLUtilisateurChangeEstCeQuiEstEcrit) {
  BureauNeuf bureau(kEnquete);
  ApercuImport& forme = bureau.Apercevoir();
  EXPECT_EQ(Cellule(forme, "Lignes", 3, 1), "67");
  PrendreColonne(forme, 0);
  auto& textes = Bureau::Dans<QListWidget>(forme, "ListTextes");
  ASSERT_TRUE(Visible(forme, "ListTextes"));
  const auto ligne = [&](const QString& texte) {
    const QList<QListWidgetItem*> lignes = textes.findItems(texte, Qt::MatchContains);
    if (lignes.size() != 1) throw std::runtime_error("no line: " + texte.toStdString());
    return lignes.front();
  };
  EXPECT_EQ(ligne("Femme")->text(), "1   Femme   (3)");
  ligne("NSP")->setCheckState(Qt::Unchecked);
  EXPECT_EQ(ligne("NSP")->text(), "0   NSP   (1)");
  textes.setCurrentItem(ligne("Homme"));
  Cliquer(forme, "BoutMonter");
  EXPECT_EQ(ligne("Homme")->text(), "1   Homme   (2)");
  EXPECT_EQ(ligne("Femme")->text(), "2   Femme   (3)");
  Nommer(forme, "SX1");
  PrendreColonne(forme, 1);
  PrendreGenre(forme, "nombres en classes");
  Taper(forme, "TextBornes", "15 40 70");
  EXPECT_EQ(Etiquette(forme, "LabelClasses"), "1  15-39\n2  40-69");
  Taper(forme, "TextBornes", "40 15");
  EXPECT_TRUE(Etiquette(forme, "LabelClasses").startsWith("Entrez des nombres croissants"));
  EXPECT_FALSE(forme.findChild<QPushButton*>("Lancer")->isEnabled()) << "40 alone is not what the field says";
  Taper(forme, "TextBornes", "15 40 70");
  Taper(forme, "TextGenerique", "NEUF.POS");
  Cliquer(forme, "Lancer");
  ASSERT_TRUE(bureau.Existe("NEUF.MOD"));
  const std::string pos = bureau.Lire("NEUF.POS");
  EXPECT_NE(pos.find("SX1   1 2 "), std::string::npos) << pos;
  EXPECT_EQ(bureau.Lire("NEUF.DAT").substr(0, 3), "211") << "Femme is 2, 23 is the first class, 1";
  EXPECT_EQ(bureau.Lire("NEUF.DAT").substr(bureau.Lire("NEUF.DAT").find('\n') * 2 + 2, 2), "01") << "NSP is 0";

  // The same file later: its choices are offered again.
  bureau.fichier = bureau.Dossier() / "NEUF.CSV";
  ImporterSourceDuGenerique(bureau.Fenetre().ServicesDesFormes(), true);
  ApercuImport& ensuite = *bureau.Forme<ApercuImport>();
  EXPECT_TRUE(Champ(ensuite, "TextGenerique") == "NEUF");
  EXPECT_TRUE(
      Bureau::Dans<QPlainTextEdit>(ensuite, "TextFautes").toPlainText().contains("sont repris pour 4 colonnes"));
  EXPECT_EQ(Cellule(ensuite, "Colonnes", 0, 1), "SX1");
  QTest::keyClick(&ensuite, Qt::Key_Escape);

  // The companion writes the same bytes from the file and the choices that were kept.
  const essai::DossierTemporaire ailleurs;
  std::filesystem::copy_file(bureau.Dossier() / "mon enquête.csv", ailleurs.Chemin() / "mon enquête.csv");
  std::filesystem::copy_file(bureau.Dossier() / "NEUF.IMC", ailleurs.Chemin() / "choix.IMC");
  quelvar::Dialogue muet;
  quelvar::capture::OptionsImport options;
  options.fichier = quelvar::TexteDe(ailleurs.Chemin() / "mon enquête.csv");
  options.fichierChoix = quelvar::TexteDe(ailleurs.Chemin() / "choix.IMC");
  EXPECT_EQ(quelvar::capture::Importer({ailleurs.Chemin(), "NEUF", 1, &muet}, options), quelvar::Fin::Normale);
  for (const char* nom : {"NEUF.DAT", "NEUF.POS", "NEUF.MOD", "NEUF.CSV", "NEUF.IMC"})
    EXPECT_EQ(bureau.Lire(nom), quelvar::LireOctets(ailleurs.Chemin() / nom)) << nom;
}

TEST(ApercuImport, UneLectureChangeeSeVoitAussitot) {
  BureauNeuf bureau("a,b\r\n1,2\r\n3,4\r\n");
  ApercuImport& forme = bureau.Apercevoir();
  auto& separateurs = Bureau::Dans<QComboBox>(forme, "ComboSeparateur");
  EXPECT_EQ(separateurs.currentText(), "virgule");
  EXPECT_EQ(Cellule(forme, "Lignes", 1, 1), "4");
  separateurs.setCurrentIndex(0);
  emit separateurs.activated(0);
  EXPECT_EQ(Bureau::Dans<QTableView>(forme, "Lignes").model()->columnCount(), 1);
  EXPECT_TRUE(Etiquette(forme, "LabelLecture").endsWith("Vous avez changé cette lecture."));
  separateurs.setCurrentIndex(1);
  emit separateurs.activated(1);
  EXPECT_EQ(Bureau::Dans<QTableView>(forme, "Lignes").model()->columnCount(), 2);
  Cliquer(forme, "CheckTitres");
  EXPECT_EQ(Cellule(forme, "Lignes", 0, 0), "a") << "the titles are a row";
}

TEST(ApercuImport, ToutesLesCellulesFautivesSontDites) {
  BureauNeuf bureau("SEX;NOT\r\n1;2\r\n2;abc\r\n1;5 %\r\n2;3\r\n1;4\r\n2;1\r\n");
  ApercuImport& forme = bureau.Apercevoir();
  const QString fautes = Bureau::Dans<QPlainTextEdit>(forme, "TextFautes").toPlainText();
  EXPECT_TRUE(fautes.contains("abc") && fautes.contains("5 %") && fautes.contains(u'3') && fautes.contains(u'4'))
      << fautes.toStdString();
  EXPECT_FALSE(Actif(forme, "Lancer"));
  const auto avant = bureau.Etat();
  QTest::keyClick(&forme, Qt::Key_Return);
  EXPECT_NE(bureau.Forme<ApercuImport>(), nullptr);
  PrendreColonne(forme, 1);
  auto& textes = Bureau::Dans<QListWidget>(forme, "ListTextes");
  ASSERT_EQ(textes.count(), 2) << "the faulty texts, which may count as 0";
  textes.item(0)->setCheckState(Qt::Unchecked);
  EXPECT_FALSE(Actif(forme, "Lancer"));
  textes.item(1)->setCheckState(Qt::Unchecked);
  EXPECT_TRUE(Actif(forme, "Lancer"));
  textes.item(1)->setCheckState(Qt::Checked);
  PrendreGenre(forme, "laissée de côté");
  EXPECT_TRUE(Actif(forme, "Lancer"));
  QTest::keyClick(&forme, Qt::Key_Escape);
  EXPECT_EQ(bureau.Forme<ApercuImport>(), nullptr);
  EXPECT_EQ(bureau.Etat(), avant) << "Escape leaves no trace";
}

TEST(ApercuImport, UnNomDejaPrisEstRefuse) {
  BureauNeuf bureau(kCodes);
  ApercuImport& forme = bureau.Apercevoir();
  PrendreColonne(forme, 1);
  EXPECT_EQ(Champ(forme, "TextNom"), "SEX");
  Nommer(forme, "AGE");
  EXPECT_TRUE(Etiquette(forme, "LabelDevenir").contains("déjà celui de la colonne 3"))
      << Etiquette(forme, "LabelDevenir").toStdString();
  EXPECT_EQ(Cellule(forme, "Colonnes", 1, 1), "SEX");
}

TEST(ApercuImport, UnGeneriqueQuiExisteEstDemande) {
  BureauNeuf bureau(kCodes);
  bureau.Ecrire("VIEUX.POS", "VIEUX\r\n 1 \r\nAAA   1 9\r\n");
  ApercuImport& forme = bureau.Apercevoir();
  Taper(forme, "TextGenerique", "VIEUX");
  EXPECT_EQ(Etiquette(forme, "LabelGenerique"), "existe déjà");
  Pilote pilote;
  pilote.Cliquer("Non");
  Cliquer(forme, "Lancer");
  EXPECT_EQ(bureau.Lire("VIEUX.POS"), "VIEUX\r\n 1 \r\nAAA   1 9\r\n");
  EXPECT_FALSE(bureau.Existe("VIEUX.DAT"));
  pilote.Cliquer("Oui");
  Cliquer(forme, "Lancer");
  EXPECT_EQ(bureau.Lire("VIEUX.PO2"), "VIEUX\r\n 1 \r\nAAA   1 9\r\n");
}

TEST(ApercuImport, UnFichierQuiDisparaitOuQuiNEstPasUneTable) {
  BureauNeuf bureau("a,b\r\n1,2\r\n");
  ApercuImport& forme = bureau.Apercevoir();
  std::filesystem::remove(bureau.fichier);
  Cliquer(forme, "CheckTitres");
  EXPECT_TRUE(Bureau::Dans<QPlainTextEdit>(forme, "TextFautes").toPlainText().contains("Fichier introuvable"));
  EXPECT_FALSE(Actif(forme, "Lancer"));
  QTest::keyClick(&forme, Qt::Key_Escape);
  Pilote pilote;
  for (const char* nom : {"image.csv", "titres.csv", "vide.csv", "faux.xlsx"}) {
    bureau.Ecrire(nom, std::string_view(nom) == "titres.csv"  ? "a;b\r\n"
                       : std::string_view(nom) == "image.csv" ? std::string_view("\x89PNG\0\0\0\rIHDR", 12)
                                                              : std::string_view());
    pilote.Cliquer("OK");
    ImporterFichier(bureau.Fenetre().ServicesDesFormes(), bureau.Dossier() / nom);
    EXPECT_EQ(bureau.Forme<ApercuImport>(), nullptr) << nom;
    EXPECT_TRUE(pilote.Vues().last().startsWith(QString::fromUtf8(nom) + " : ")) << pilote.Vues().last().toStdString();
  }
}

TEST(ApercuImport, LesEcrituresProchesSeReunissent) {
  BureauNeuf bureau("q\r\nOui\r\nOUI\r\nNon\r\nOui\r\n");
  ApercuImport& forme = bureau.Apercevoir();
  EXPECT_TRUE(Bureau::Dans<QPlainTextEdit>(forme, "TextFautes")
                  .toPlainText()
                  .contains("\"OUI\" (1), \"Oui\" (2) s'écrivent presque de même"))
      << Bureau::Dans<QPlainTextEdit>(forme, "TextFautes").toPlainText().toStdString();
  ASSERT_TRUE(Visible(forme, "CheckFondus"));
  Cliquer(forme, "CheckFondus");
  EXPECT_TRUE(Etiquette(forme, "LabelDevenir").startsWith("2 textes deviennent des codes"));
  Cliquer(forme, "Lancer");
  EXPECT_EQ(bureau.Lire("MONENQUETE.DAT"), "2\r\n2\r\n1\r\n2\r\n");
}

TEST(ApercuImport, UnClasseurEtSesFeuilles) {
  BureauNeuf bureau("", "x.txt");
  bureau.fichier = bureau.Dossier() / "classeur.xlsx";
  essai::EcrireXlsx(bureau.fichier,
                    {{"name=\"Vide\"", ""},
                     {"name=\"Notice\"", "<row><c t=\"inlineStr\"><is><t>Lisez-moi</t></is></c></row>"},
                     {"name=\"Codes\"",
                      "<row><c t=\"inlineStr\"><is><t>SEX</t></is></c></row><row><c><v>2</v></c></row>"
                      "<row><c><v>1</v></c></row>"},
                     {"name=\"Autre\"",
                      "<row><c t=\"inlineStr\"><is><t>AGE</t></is></c></row><row><c><v>0.435</v></c></row>"
                      "<row><c><v>12.5</v></c></row>"}});
  ApercuImport& forme = bureau.Apercevoir();
  auto& feuilles = Bureau::Dans<QComboBox>(forme, "ComboFeuille");
  EXPECT_EQ(feuilles.count(), 4);
  EXPECT_EQ(feuilles.currentText(), "Codes") << "the first one with a table";
  EXPECT_TRUE(Bureau::Dans<QPlainTextEdit>(forme, "TextFautes")
                  .toPlainText()
                  .contains("La feuille 2 \"Notice\" est vide ou n'a qu'une ligne"));
  EXPECT_EQ(Etiquette(forme, "LabelLecture"),
            "Reconnu dans le fichier : feuille \"Codes\" (3 sur 4), intitulés à la ligne 1.");
  EXPECT_FALSE(Visible(forme, "ComboEncodage")) << "a sheet has none";
  EXPECT_EQ(Cellule(forme, "Colonnes", 0, 0), "SEX");
  const auto prendre = [&](int rang) {
    feuilles.setCurrentIndex(rang);
    emit feuilles.activated(rang);
  };
  prendre(3);
  EXPECT_EQ(Cellule(forme, "Lignes", 0, 0), "0.435") << "as it is stored";
  {
    Pilote pilote;
    pilote.Cliquer("OK");
    prendre(0);
    EXPECT_TRUE(pilote.Vues().last().startsWith("La feuille \"Vide\" de classeur.xlsx est vide."));
  }
  EXPECT_EQ(feuilles.currentText(), "Autre") << "the sheet before stays";
  prendre(2);
  Cliquer(forme, "Lancer");
  EXPECT_EQ(bureau.Lire("CLASSEUR.DAT"), "2\r\n1\r\n");
}

TEST(ApercuImport, UnGrandFichierSExamineEnArrierePlan) {
  std::string grand = "SEX;AGE\r\n";
  constexpr int kIndividus = 900'000;
  for (int i = 0; i < kIndividus; ++i) grand += i % 2 == 0 ? "1;2\r\n" : "2;3\r\n";
  BureauNeuf bureau(grand);
  {
    const ApercuImport& quittee = bureau.Apercevoir();
    EXPECT_TRUE(Etiquette(quittee, "LabelCompte").startsWith("Examen du fichier entier en cours"));
    QTest::keyClick(bureau.Forme<ApercuImport>(), Qt::Key_Escape);
    QCoreApplication::processEvents();
  }
  ApercuImport& forme = bureau.Apercevoir();
  EXPECT_TRUE(Visible(forme, "ProgresExamen"));
  Cliquer(forme, "Lancer");  // it waits for the end
  EXPECT_TRUE(QTest::qWaitFor([&] { return bureau.Existe("MONENQUETE.POS"); }, 20'000));
  EXPECT_EQ(bureau.Fenetre().ServicesDesFormes().session.individus, kIndividus);
}

// Closing the form that has launched the run is the run's own doing when its report is too long for Text1.
TEST(ApercuImport, UnLongRapportVaAuLecteur) {
  std::string large;
  std::string valeurs;
  constexpr int kColonnes = 700;
  for (int c = 0; c < kColonnes; ++c) {
    large += "Q" + std::to_string(c) + " une question;";
    valeurs += std::to_string(c % 9 + 1) + ";";
  }
  large += "DER\r\n";
  for (const char* dernier : {"1", "2", "2"}) large += valeurs + dernier + "\r\n";
  BureauNeuf bureau(large);
  ApercuImport& forme = bureau.Apercevoir();
  Cliquer(forme, "Lancer");
  QCoreApplication::processEvents();
  EXPECT_EQ(bureau.Forme<ApercuImport>(), nullptr);
  EXPECT_TRUE(bureau.Texte().startsWith("texte trop long"));
  EXPECT_EQ(bureau.demarres.size(), 1) << "the viewer";
  EXPECT_EQ(bureau.Fenetre().ServicesDesFormes().session.individus, 3);
}

TEST(ApercuImport, UnFichierDBaseNeDemandeQueSonGenerique) {
  // One field SEX of one character, two records.
  std::string dbf(32 + 32 + 1, '\0');
  dbf[0] = 3;
  dbf[4] = 2;
  dbf[8] = 65;
  dbf[10] = 2;
  dbf.replace(32, 3, "SEX");
  dbf[32 + 11] = 'N';
  dbf[32 + 16] = 1;
  dbf[64] = '\r';
  BureauNeuf bureau(dbf + " 1 2\x1A", "vieux.dbf");
  Pilote pilote;
  pilote.Abandonner();
  ImporterFichier(bureau.Fenetre().ServicesDesFormes(), bureau.fichier);
  EXPECT_FALSE(bureau.Existe("VIEUX.DAT"));
  pilote.Taper("TABLE");
  EXPECT_TRUE(Deposer(bureau));
  EXPECT_EQ(bureau.Lire("TABLE.DAT"), "1\r\n2\r\n");
  EXPECT_EQ(bureau.Fenetre().ServicesDesFormes().session.generique, "TABLE");
}

TEST(ApercuImport, DeposerUnFichierSurLaFenetre) {
  BureauNeuf bureau(kCodes);
  EXPECT_TRUE(Deposer(bureau));
  QWidget& texte = *Bureau::Dans<QPlainTextEdit>(bureau.Fenetre(), "Text1").viewport();
  EXPECT_NE(bureau.Forme<ApercuImport>(), nullptr);
  QMimeData mots;
  mots.setText("un texte");
  QDragEnterEvent autre({5, 5}, Qt::CopyAction, &mots, Qt::LeftButton, {});
  QApplication::sendEvent(&texte, &autre);
  EXPECT_FALSE(autre.isAccepted());
}

TEST(ApercuImport, LesDeuxTailles) {
  BureauNeuf bureau(kEnquete);
  ApercuImport& forme = bureau.Apercevoir();
  for (int ligne = 0; ligne < 4; ++ligne) {
    PrendreColonne(forme, ligne);
    EXPECT_LE(forme.minimumSizeHint().width(), 1024);
    EXPECT_LE(forme.minimumSizeHint().height(), 768 - 40);
  }
  const int avant = Bureau::Dans<QWidget>(forme, "Lignes").width();
  forme.resize(1900, 1000);
  QCoreApplication::processEvents();
  EXPECT_GT(Bureau::Dans<QWidget>(forme, "Lignes").width(), avant) << "the tables take the room";
}

TEST(PremierEcran, TroisPasEtUnBouton) {
  Bureau bureau;
  bureau.Ouvrir();
  EXPECT_TRUE(bureau.Texte().contains("Pour commencer, trois pas :\n   1. "));
  const std::filesystem::path ailleurs = bureau.Dossier().parent_path() / "Ailleurs";
  std::filesystem::create_directory(ailleurs);
  essai::EcrireOctets(ailleurs / "enq.csv", kCodes);
  Pilote pilote;
  pilote.Choisir(QString::fromStdString((ailleurs / "enq.csv").string()));
  Cliquer(bureau.Fenetre(), "BoutImport");
  auto* forme = bureau.Forme<ApercuImport>();
  ASSERT_NE(forme, nullptr);
  QTest::keyClick(forme, Qt::Key_Return);
  EXPECT_EQ(quelvar::LireOctets(ailleurs / "ENQ.DAT"), "112\r\n223\r\n311\r\n") << "beside the file";
  EXPECT_EQ(bureau.Fenetre().ServicesDesFormes().session.repertoire, ailleurs);
  bureau.Menu("mnuTriapl");
  EXPECT_TRUE(bureau.Texte().contains("Question SEX Position    2"));
}

// From the form of the generic's own source: codes go through at once, anything else is looked at first.
TEST(FImportCSV, LAutreFichierEtLApercu) {
  BureauNeuf bureau(kEnquete, "AVANT.CSV");
  FImportCSV& forme = bureau.Demander<FImportCSV>("mnuImport");
  Cliquer(forme, "Lancer");
  ASSERT_NE(bureau.Forme<ApercuImport>(), nullptr);
  EXPECT_EQ(Champ(*bureau.Forme<ApercuImport>(), "TextGenerique"), "AVANT");
  QTest::keyClick(bureau.Forme<ApercuImport>(), Qt::Key_Escape);
  Cliquer(bureau.Demander<FImportCSV>("mnuImport"), "BoutFichier");
  EXPECT_NE(bureau.Forme<SourceImport>(), nullptr);
}
