#include "forms/qt/application.h"

#include <QApplication>
#include <QFileInfo>
#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include "core/programme/version.h"
#include "forms/qt/texte.h"

// The resources of a static library are brought in by hand, outside of any namespace.
static void InitialiserRessources() {
  Q_INIT_RESOURCE(quelvar);
  Q_INIT_RESOURCE(icones);
}

namespace quelvar::forms {

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
