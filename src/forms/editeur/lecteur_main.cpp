// The viewer of long reports: the window of the editor, read-only, in a process of its own that nobody waits for.
#include <QDesktopServices>
#include <QUrl>

#include "forms/editeur/frmsdi.h"
#include "forms/qt/application.h"
#include "forms/qt/ecran.h"
#include "forms/qt/reglages.h"

namespace {

void OuvrirAide() {
  QUrl adresse = QUrl::fromLocalFile(quelvar::forms::DossierAide() + QStringLiteral("/QuelvarAide.html"));
  adresse.setFragment(QStringLiteral("33"));
  QDesktopServices::openUrl(adresse);
}

}  // namespace

int main(int argc, char** argv) {
  quelvar::forms::Application application(argc, argv);
  quelvar::forms::PreparerApplication();
  const QStringList arguments = QCoreApplication::arguments();
  quelvar::forms::frmSDI lecteur({quelvar::forms::ReglagesQt(), OuvrirAide}, quelvar::forms::frmSDI::Genre::Lecteur);
  lecteur.show();
  quelvar::forms::TenirDansLEcran(lecteur);
  const bool ouvert = arguments.size() > 1 ? lecteur.Ouvrir(arguments[1]) : lecteur.OuvrirParDialogue();
  return ouvert ? quelvar::forms::Application::exec() : 1;
}
