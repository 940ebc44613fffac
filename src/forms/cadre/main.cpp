// Starts the window program: texts in French, the services of the platform, the main form, and what an earlier one
// could not save.
#include <QDesktopServices>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

#include "forms/cadre/principal.h"
#include "forms/qt/application.h"
#include "forms/qt/ecran.h"
#include "forms/qt/reglages.h"
#include "forms/qt/signaux.h"
#include "forms/qt/texte.h"

namespace {

bool DemarrerVoisin(const QString& programme, const QStringList& arguments) {
  return QProcess::startDetached(QCoreApplication::applicationDirPath() + u'/' + programme, arguments);
}

}  // namespace

int main(int argc, char** argv) {
  quelvar::forms::Application application(argc, argv);
  quelvar::forms::PreparerApplication();
  quelvar::forms::Principal principal(
      {quelvar::RepertoireDuProgramme(
           quelvar::forms::CheminDepuisQt(QCoreApplication::applicationFilePath()),
           quelvar::forms::CheminDepuisQt(QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation))),
       quelvar::forms::ReglagesQt(), quelvar::forms::DossierAide(), DemarrerVoisin,
       [](const QUrl& adresse) { return QDesktopServices::openUrl(adresse); }, quelvar::forms::DossierDeSecours()});
  quelvar::forms::TenirDansLEcran(principal);
  principal.show();
  const quelvar::forms::Signaux signaux([&] { principal.TextesOuverts().MettreASauf(); });
  QMetaObject::invokeMethod(
      &principal, [&] { principal.TextesOuverts().ProposerLesSecours(); }, Qt::QueuedConnection);
  return quelvar::forms::Application::exec();
}
