// What fails outside of the runs: in an entry of the menu, in the making of a form, in a handler of its own. It is
// told, and the window stays.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QListWidget>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <filesystem>
#include <functional>
#include <new>
#include <stdexcept>
#include <string>
#include <system_error>

#include "core/options/option.h"
#include "core/programme/annulation.h"
#include "forms/bureaucomplet.h"
#include "forms/bureauenq.h"
#include "forms/cadre/menus/entrees.h"
#include "forms/qt/application.h"
#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

using namespace quelvar::forms;

namespace {

using essai::Bureau;
using essai::BureauComplet;
using essai::Pilote;
using essai::Silence;

namespace fs = std::filesystem;

// The library leaves allocated what it holds of an event and of its receiver when an exception passes through it: no
// leak of ours.
class SansCompterLesFuites {
 public:
#ifdef __SANITIZE_ADDRESS__
  SansCompterLesFuites() { __lsan_disable(); }
  ~SansCompterLesFuites() { __lsan_enable(); }
#else
  SansCompterLesFuites() = default;
  ~SansCompterLesFuites() = default;
#endif
  SansCompterLesFuites(const SansCompterLesFuites&) = delete;
  SansCompterLesFuites& operator=(const SansCompterLesFuites&) = delete;
};

// Each thing that a handler may let escape, behind a click.
TEST(Application, CeQuiEchappeAUnGestionnaireEstDitEtLaFenetreReste) {
  struct Cas {
    std::function<void()> geste;
    const char* phrase;
  };
  const Cas tous[] = {
      {[] { throw quelvar::Erreur(quelvar::kPermissionRefusee).Situer({.fichier = "ENQ.MOD", .ligne = 3}); },
       "Permission refusée (ENQ.MOD, ligne 3)"},
      {[] { throw fs::filesystem_error("x", std::make_error_code(std::errc::no_space_on_device)); }, "Disque plein"},
      {[] { throw std::bad_alloc(); }, "Mémoire insuffisante"},
      {[] { throw std::runtime_error("cassé"); }, "faute du programme"},
      {[] { throw 3; }, "faute du programme"},
      {[] { throw quelvar::Annulation(); }, "Arrêt volontaire du programme"},
      {[] { throw quelvar::UsageIncorrect("l'option pas attend un nombre"); }, "l'option pas attend un nombre"},
  };
  for (const Cas& cas : tous) {
    SCOPED_TRACE(cas.phrase);
    [[maybe_unused]] const SansCompterLesFuites silence;
    Pilote pilote;
    QPushButton bouton;
    int clics = 0;
    QObject::connect(&bouton, &QPushButton::clicked, &bouton, [&] {
      ++clics;
      cas.geste();
    });
    bouton.show();
    pilote.Cliquer("OK");
    QTest::mouseClick(&bouton, Qt::LeftButton);
    QTest::mouseClick(&bouton, Qt::LeftButton);  // before the box is there: one box tells
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    EXPECT_EQ(clics, 2) << "the button goes on working";
    ASSERT_EQ(pilote.Vues().size(), 1);
    EXPECT_TRUE(pilote.Vues().front().contains(QString::fromUtf8(cas.phrase))) << pilote.Vues().front().toStdString();
    EXPECT_TRUE(bouton.isVisible());
  }
}

void MettreUnRepertoire(const Bureau& bureau, const char* nom) {
  fs::remove_all(bureau.Dossier() / nom);
  fs::create_directory(bureau.Dossier() / nom);
}

// The form reads the names of the answers as it is made.
TEST(Pannes, UneFormeQuiNePeutPasSeFaireLeDit) {
  essai::BureauEnq bureau(2);
  bureau.AvecDonnees();
  bureau.Ecrire("ENQ.DES", "SEX     2     \r\n");
  MettreUnRepertoire(bureau, "ENQ.MOD");
  bureau.Ouvrir();
  const Pilote pilote;
  for (int fois = 0; fois < 2; ++fois) {  // the menu opens again
    bureau.Controle<QPlainTextEdit>("Text1").clear();
    bureau.Menu("mnuSaisie");
    QCoreApplication::processEvents();
    EXPECT_EQ(bureau.Texte(), "ENQ.MOD est un répertoire et non un fichier : Erreur d'accès chemin/fichier\n");
    EXPECT_TRUE(bureau.Fenetre().isVisible());
  }
}

// The directory as it was when the copy was made; the generic too.
void Remettre(BureauComplet& bureau, const essai::CopieDuDossier& avant) {
  for (const auto& entree : fs::directory_iterator(bureau.Dossier())) fs::remove_all(entree.path());
  fs::copy(avant.dossier.Chemin(), bureau.Dossier(), fs::copy_options::recursive);
  Services& services = bureau.Fenetre().ServicesDesFormes();
  if (services.session.generique != "ENQ") services.accepterGenerique(QStringLiteral("ENQ"));
}

// What a user does who wants the thing done: the first line of each list, the buttons that choose, those that launch.
void Lancer(const QPointer<quelvar::forms::Forme>& forme) {
  for (auto* liste : forme->findChildren<QListWidget*>())
    if (liste->isVisible() && liste->currentRow() < 0) liste->setCurrentRow(0);
  for (const char* nom : {"BoutActPlus", "BoutPlus", "CmdFichDAT", "Lancer", "BoutLancer", "BoutLancerTri", "BtLancer",
                          "CbLancer", "BoutonTriapl", "BoutModif", "BoutonCAH", "BoutEnreg", "BtEnreg", "BtFin",
                          "BoutListe", "BoutArret", "BoutonQuitter"}) {
    if (!forme) return;  // gone with a launch
    auto* bouton = forme->findChild<QAbstractButton*>(QString::fromLatin1(nom));
    if (bouton == nullptr || !bouton->isVisible() || !bouton->isEnabled()) continue;
    QTest::mouseClick(bouton, Qt::LeftButton);
    QCoreApplication::processEvents();
  }
}

TEST(Pannes, UnRepertoireALaPlaceDUnFichierEstDitParToutesLesEntrees) {
  BureauComplet bureau;
  bureau.Ecrire("ENQ.CSV", essai::kTableur);
  const essai::CopieDuDossier avant(bureau);
  QStringList dits;
  const Silence silence([&](QDialog& boite) {
    if (auto* message = qobject_cast<QMessageBox*>(&boite)) dits << message->text();
    else dits << boite.windowTitle();
  });
  int prises = 0;
  for (const char* fichier : {"ENQ.POS", "ENQ.DAT", "ENQ.MOD", "ENQ.DES", "ENQ.BRT", "ENQ.FA1", "ENQ.FAJ", "ENQ.TXT",
                              "ENQ.TRG", "ENQ.CSV", "ENQ.PRT"})
    for (const EntreeDeProgramme& entree : EntreesDeProgrammes()) {
      SCOPED_TRACE(std::string(entree.action) + " on a directory " + fichier);
      Remettre(bureau, avant);
      MettreUnRepertoire(bureau, fichier);
      if (!bureau.MenuActif(entree.action)) continue;
      auto& texte = bureau.Controle<QPlainTextEdit>("Text1");
      texte.clear();
      dits.clear();
      bureau.Menu(entree.action);
      QCoreApplication::processEvents();
      const QList<quelvar::forms::Forme*> ouvertes = bureau.Ouvertes();
      EXPECT_TRUE(!ouvertes.isEmpty() || !dits.isEmpty() || !texte.toPlainText().isEmpty()) << "nothing is told";
      for (const QPointer<quelvar::forms::Forme> forme : ouvertes)
        if (forme) Lancer(forme);
      QCoreApplication::processEvents();
      EXPECT_TRUE(bureau.Fenetre().isVisible());
      EXPECT_FALSE((dits.join(u'\n') + texte.toPlainText()).contains("faute du programme"))
          << dits.join(u'\n').toStdString() << texte.toPlainText().toStdString();
      bureau.Fenetre().ServicesDesFormes().formes.FermerSansDemander();
      QCoreApplication::processEvents();
      ++prises;
    }
  EXPECT_GE(prises, 300);
}

}  // namespace
