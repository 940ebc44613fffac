// What Text1 shows of the result files, and what is saved and printed of it.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>

#include "core/texte/texte.h"
#include "forms/pilote.h"
#include "forms/texte/textefixe.h"

using namespace quelvar::forms;

namespace {

using essai::Bureau;
using essai::Pilote;
using quelvar::operator""_w;

struct BureauEnq : Bureau {
  BureauEnq() : Bureau(1) {}
  QString Chemin(const char* nom) const { return QString::fromStdString((Dossier() / nom).string()); }
  quelvar::forms::TexteFixe& Text1() { return Controle<quelvar::forms::TexteFixe>("Text1"); }
};

TEST(Affichage, ChaqueGenreDeResultat) {
  const std::pair<const char*, const char*> entrees[] = {
      {"mnuAfIMP", "imp"}, {"mnuAfDES", "des"}, {"mnuAfPOS", "pos"}, {"mnuAfTAP", "tap"},
      {"mnuAfTRG", "trg"}, {"mnuAfTCR", "tcr"}, {"mnuAfREC", "rec"}, {"mnuAfMOD", "mod"},
      {"mnuAfPRO", "pro"}, {"mnuAfAFC", "afc"}, {"mnuAfACP", "acp"}, {"mnuAfREG", "reg"},
      {"mnuAfTRP", "trp"}, {"mnuAFPR2", "pr2"}, {"mnuAfTRF", "trf"}, {"mnuAfPRT", "prt"}};
  BureauEnq bureau;
  bureau.Ouvrir();
  for (const auto& [entree, extension] : entrees) {
    SCOPED_TRACE(entree);
    const QString nom = QStringLiteral("ENQ.") + QString(extension).toUpper();
    auto* menu = bureau.Fenetre().findChild<QMenu*>("mnuAffichage");
    emit menu->aboutToShow();
    EXPECT_FALSE(bureau.MenuActif(entree));
    bureau.Ecrire(nom.toUtf8().constData(), std::string("contenu de ") + extension + " : \xE9t\xE9\r\n");
    bureau.Menu(entree);
    EXPECT_EQ(bureau.Texte(), QStringLiteral("contenu de ") + extension + " : été\n");
    EXPECT_EQ(bureau.Controle<QLabel>("FichAff").text(), nom);
    EXPECT_TRUE(bureau.MenuActif("mnuEnregSous"));
  }
}

TEST(Affichage, UnArretMontreOuEstLaFaute) {
  BureauEnq bureau;
  bureau.Ecrire("ENQ.POS", "ENQ\r\n 2 \r\nSEX   1 2\r\nAGE 9E91 9\r\n");
  bureau.Ecrire("ENQ.DAT", "11\r\n21\r\n");
  Pilote pilote;
  pilote.Cliquer("OK");
  bureau.Ouvrir();
  bureau.Menu("mnuTriapl");
  ASSERT_EQ(pilote.Vues().size(), 1);
  EXPECT_TRUE(pilote.Vues().first().contains("(ENQ.POS, ligne 4, colonne 4)")) << pilote.Vues().first().toStdString();
  EXPECT_FALSE(bureau.Texte().contains("colonne 4")) << "the report keeps its fixed words";
}

TEST(Affichage, FichierVideAEffacer) {
  BureauEnq bureau;
  bureau.Ecrire("ENQ.TAP", "");
  bureau.Ouvrir();
  const QString avant = bureau.Texte();
  Pilote pilote;
  pilote.Cliquer("Non");
  bureau.Menu("mnuAfTAP");
  EXPECT_EQ(pilote.Vues().value(0), "Le fichier ENQ.TAP est vide : vous devez l'effacer");
  EXPECT_TRUE(bureau.Existe("ENQ.TAP"));
  pilote.Cliquer("Oui");
  bureau.Menu("mnuAfTAP");
  EXPECT_FALSE(bureau.Existe("ENQ.TAP"));
  EXPECT_EQ(bureau.Texte(), avant);
}

TEST(Affichage, FichierQuiNePeutPasEtreLu) {
  BureauEnq bureau;
  std::filesystem::create_directory(bureau.Dossier() / "ENQ.TAP");
  bureau.Ouvrir();
  bureau.Menu("mnuAfTAP");
  EXPECT_EQ(bureau.Texte(),
            "Le fichier ENQ.TAP ne peut pas être affiché : ENQ.TAP est un répertoire et non un fichier : "
            "Erreur d'accès chemin/fichier\n");
}

TEST(Affichage, NomLongCoupe) {
  BureauEnq bureau;
  bureau.Ecrire("qvr2.ini", "ENQUETE_DE_2003\r\n 1 \r\n");
  bureau.Ecrire("ENQUETE_DE_2003.TAP", "x");
  bureau.Ouvrir();
  bureau.Menu("mnuAfTAP");
  EXPECT_EQ(bureau.Controle<QLabel>("FichAff").text(), "UETE_DE_2003.TAP");
}

TEST(Affichage, ResultatTropLongPourLaBoite) {
  BureauEnq bureau;
  bureau.Ecrire("ENQ.TCR", std::string(quelvar::kAffichageEntier + 1, 'x'));
  bureau.Ouvrir();
  bureau.Menu("mnuAfTCR");
  EXPECT_EQ(bureau.Texte(), "texte trop long, WordPad est lancé\npour examiner les résultats de : ENQ.TCR\n");
  EXPECT_EQ(bureau.demarres, QStringList("quelvar-lecteur " + bureau.Chemin("ENQ.TCR")));
}

TEST(Affichage, PartielSousSaRegle) {
  BureauEnq bureau;
  std::string donnees;
  for (int i = 0; i < 4000; ++i) donnees += "1234567890 2\r\n";
  bureau.Ecrire("ENQ.DAT", donnees);
  bureau.Ouvrir();
  bureau.Menu("mnuAfPartielDAT");
  const QStringList lignes = bureau.Texte().split('\n');
  EXPECT_EQ(lignes[0], "Positions : lignes des centaines, dizaines, unités");
  EXPECT_EQ(lignes[2], "         1  ");
  EXPECT_EQ(lignes[4], "------------");
  EXPECT_EQ(lignes.size(), 5 + 28000 / 14 + 1);
  auto& verrou = bureau.Controle<QCheckBox>("VerrouLignes");
  ASSERT_TRUE(verrou.isVisible());
  essai::Cliquer(bureau.Fenetre(), "VerrouLignes");
  essai::Cliquer(bureau.Fenetre(), "VerrouColonnes");
  ASSERT_TRUE(verrou.isChecked());
  // The ruler stays where it was on the screen while the lines pass under it.
  QWidget* vue = bureau.Text1().viewport();
  const int hauteur = 5 * QFontMetrics(bureau.Text1().font()).lineSpacing();
  const auto tete = [&] { return bureau.Text1().grab(QRect(vue->x(), vue->y(), vue->width(), hauteur)).toImage(); };
  const QImage avant = tete();
  bureau.Text1().verticalScrollBar()->setValue(500);
  EXPECT_EQ(tete(), avant);
  essai::Cliquer(bureau.Fenetre(), "VerrouLignes");
  EXPECT_NE(tete(), avant);
  bureau.Ecrire("ENQ.TAP", "x");
  bureau.Menu("mnuAfTAP");
  EXPECT_FALSE(verrou.isVisible());
}

TEST(Affichage, PartielDUnFichierQuelconque) {
  BureauEnq bureau;
  bureau.Ecrire("Autre nom.xyz", std::string(40000, 'a'));
  bureau.Ouvrir();
  Pilote pilote;
  pilote.Choisir(bureau.Chemin("Autre nom.xyz"));
  bureau.Menu("MnuAfPartielAll");
  EXPECT_EQ(bureau.Texte(), QString(30000, 'a'));
  EXPECT_FALSE(bureau.Controle<QCheckBox>("VerrouLignes").isVisible());
  // Saving what is only the head over the file itself is asked for twice: by the dialog and by us.
  pilote.Faire([&](QDialog& boite) {
    EXPECT_EQ(boite.findChild<QLineEdit*>("fileNameEdit")->text(), "Autre nom.xyz");
    QTest::keyClick(boite.findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return);
  });
  pilote.Cliquer("Oui");
  pilote.Cliquer("Non");
  essai::Cliquer(bureau.Fenetre(), "BoutonEnregS");
  EXPECT_TRUE(pilote.Vues().back().contains("ne montre que le début"));
  EXPECT_EQ(bureau.Lire("Autre nom.xyz").size(), 40000U);
}

TEST(Affichage, CorrectionEnregistreeSansPerdreUnOctet) {
  BureauEnq bureau;
  std::string octets = "début\r\n"_w.data();
  for (int octet = 0; octet < 256; ++octet)
    if (octet != '\r' && octet != '\n') octets += static_cast<char>(octet);
  octets += "\r\nfin";
  bureau.Ecrire("ENQ.PRT", octets);
  bureau.Ouvrir();
  bureau.Menu("mnuAfPRT");
  QTest::keyClick(&bureau.Text1(), Qt::Key_End, Qt::ControlModifier);
  QTest::keyClicks(&bureau.Text1(), " corrigee");
  Pilote pilote;
  pilote.Choisir("copie.txt");
  bureau.Menu("mnuEnregSous");
  EXPECT_EQ(bureau.Lire("copie.txt"), octets + " corrigee");
  EXPECT_EQ(bureau.Lire("ENQ.PRT"), octets);
}

TEST(Affichage, FichierModifieDepuisSonAffichage) {
  BureauEnq bureau;
  bureau.Ecrire("ENQ.TAP", "premier\r\n");
  bureau.Ouvrir();
  bureau.Menu("mnuAfTAP");
  bureau.Ecrire("ENQ.TAP", "second\r\n");
  Pilote pilote;
  pilote.Choisir("ENQ.TAP");
  pilote.Cliquer("Oui");
  pilote.Cliquer("Non");
  bureau.Menu("mnuEnregSous");
  EXPECT_EQ(pilote.Vues().back(), "Le fichier ENQ.TAP a été modifié depuis son affichage : le remplacer ?");
  EXPECT_EQ(bureau.Lire("ENQ.TAP"), "second\r\n");
}

TEST(Affichage, EnregistrementImpossible) {
  BureauEnq bureau;
  bureau.Ecrire("ENQ.TAP", "x\r\n");
  bureau.Ouvrir();
  bureau.Menu("mnuAfTAP");
  Pilote pilote;
  // A directory that vanishes between the dialog and the writing.
  const std::filesystem::path parti = bureau.Dossier() / "parti";
  std::filesystem::create_directory(parti);
  pilote.Faire([&](QDialog& boite) {
    boite.findChild<QLineEdit*>("fileNameEdit")->setText(QString::fromStdString((parti / "y").string()));
    QObject::connect(&static_cast<QFileDialog&>(boite), &QFileDialog::accepted,
                     [&] { std::filesystem::remove_all(parti); });
    QTest::keyClick(boite.findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return);
  });
  pilote.Cliquer("OK");
  bureau.Menu("mnuEnregSous");
  EXPECT_TRUE(pilote.Vues().back().contains("ne peut pas être écrit : Chemin d'accès introuvable"));
  EXPECT_EQ(bureau.Texte(), "x\n");
}

TEST(Affichage, ImpressionAbandonneeEtPdf) {
  BureauEnq bureau;
  bureau.Ecrire("ENQ.TAP", "une ligne\r\n");
  bureau.Ouvrir();
  bureau.Menu("mnuAfTAP");
  Pilote pilote;
  pilote.Choisir(bureau.Chemin("resultat.pdf"));
  bureau.Menu("mnuPDF");
  EXPECT_TRUE(bureau.Lire("resultat.pdf").starts_with("%PDF-"));
  pilote.Cliquer("OK");  // no printer here
  essai::Cliquer(bureau.Fenetre(), "BoutonImpr");
  EXPECT_EQ(pilote.Vues().back(), "Pas d'imprimante disponible (ou annulation)");
}

}  // namespace
