#include "forms/qt/application.h"

#include <QFileInfo>
#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>
#include <utility>

#include "core/programme/version.h"
#include "forms/qt/dialogue.h"
#include "forms/qt/garde.h"
#include "forms/qt/texte.h"

// The resources of a static library are brought in by hand, outside of any namespace.
static void InitialiserRessources() {
  Q_INIT_RESOURCE(quelvar);
  Q_INIT_RESOURCE(icones);
}

namespace quelvar::forms {

bool Application::notify(QObject* objet, QEvent* evenement) {
  try {
    return QApplication::notify(objet, evenement);
  } catch (...) {
    DireEnsuite(EchecEnCours());
    return true;
  }
}

// Not within the event: one that paints would call for the next as soon as the box uncovers the window.
void Application::DireEnsuite(const Erreur& erreur) {
  if (std::exchange(dite_, true)) return;
  QMetaObject::invokeMethod(
      this,
      [this, texte = VersQt(TexteErreur(erreur))] {
        DemanderReponse(activeWindow(), texte, Boutons::Ok);
        dite_ = false;
      },
      Qt::QueuedConnection);
}

void PreparerApplication() {
  InitialiserRessources();
  QCoreApplication::setOrganizationName(QStringLiteral("Quelvar"));
  QCoreApplication::setApplicationName(QStringLiteral("Quelvar"));
  QCoreApplication::setApplicationVersion(VersQt(kVersion));
  QGuiApplication::setDesktopFileName(QStringLiteral("quelvar"));
  QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/quelvar.svg")));
  QLocale::setDefault(QLocale(QLocale::French, QLocale::France));
  auto* catalogue = new QTranslator(qApp);
  if (catalogue->load(QStringLiteral("qtbase_fr"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QCoreApplication::installTranslator(catalogue);
}

QString DossierAide() {
  const QString programme = QCoreApplication::applicationDirPath();
  for (const QString& dossier :
       {programme + QStringLiteral("/aide"), programme + QStringLiteral("/../share/quelvar/aide")})
    if (QFileInfo::exists(dossier + QStringLiteral("/QuelvarAide.html"))) return dossier;
  return {};
}

}  // namespace quelvar::forms
