// The bar of menus: its letters and shortcuts, and which entries of the help are active.
#include "forms/cadre/menus/barre.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QKeySequence>
#include <QMap>
#include <QMenu>

#include "forms/pilote.h"

namespace {

using essai::Bureau;
using essai::BureauDe;

TEST(Barre, MenusSansLettreNiRaccourciDouble) {
  BureauDe bureau(1, {{"ENQ.POS", "ENQ\r\n 3 \r\nSEX   1 2 $Sexe$\r\n"}});
  QMap<QString, QString> raccourcis;
  for (const QMenu* menu : bureau.Fenetre().findChildren<QMenu*>()) {
    if (menu->title().isEmpty()) continue;  // the bar's own, for what does not fit
    QMap<QString, QString> lettres;
    for (const QAction* action : menu->actions()) {
      const QString lettre = QKeySequence::mnemonic(action->text()).toString();
      if (action->isSeparator() || action->objectName().startsWith("mnuRecentFile")) continue;
      EXPECT_FALSE(lettre.isEmpty()) << action->text().toStdString();
      EXPECT_FALSE(lettres.contains(lettre)) << menu->title().toStdString() << ": " << action->text().toStdString()
                                             << " / " << lettres[lettre].toStdString();
      lettres[lettre] = action->text();
      const QString raccourci = action->shortcut().toString();
      EXPECT_TRUE(raccourci.isEmpty() || !raccourcis.contains(raccourci)) << raccourci.toStdString();
      raccourcis[raccourci] = action->text();
    }
  }
}

TEST(Barre, EntreesSelonLesDocuments) {
  Bureau bureau;
  std::filesystem::create_directories(bureau.DossierProgramme() / "aide");
  essai::EcrireOctets(bureau.DossierProgramme() / "aide" / "QuelvarAide.html",
                      "<h2 id=\"4\">Tri</h2><h2 id=\"29b\">T</h2>");
  essai::EcrireOctets(bureau.DossierProgramme() / "aide" / "Khideux2.pdf", "%PDF");
  bureau.Ouvrir();
  for (const char* active : {"mnuAGen", "mnuATriapl", "mnuAPrepText", "mnuKhideux2"})
    EXPECT_TRUE(bureau.MenuActif(active)) << active;
  for (const char* inactive : {"mnuAPrepGen", "mnuAellipse", "mnuChap1a"})
    EXPECT_FALSE(bureau.MenuActif(inactive)) << inactive;
  bureau.Menu("mnuATriapl");
  bureau.Menu("mnuKhideux2");
  ASSERT_EQ(bureau.ouverts.size(), 2);
  EXPECT_TRUE(bureau.ouverts[0].startsWith("file://") && bureau.ouverts[0].endsWith("/aide/QuelvarAide.html#4"));
  EXPECT_TRUE(bureau.ouverts[1].endsWith("/aide/Khideux2.pdf"));
}

}  // namespace
