#include "forms/qt/reglages.h"

#include <QSettings>

namespace quelvar::forms {

namespace {

QString Texte8(std::string_view utf8) { return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size())); }

QString Cle(std::string_view section, std::string_view cle) { return Texte8(section) + u'/' + Texte8(cle); }

}  // namespace

Reglages ReglagesQt() {
  Reglages reglages;
  reglages.lire = [](std::string_view application, std::string_view section, std::string_view cle) {
    const QSettings magasin(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Quelvar"), Texte8(application));
    return magasin.value(Cle(section, cle)).toString().toStdString();
  };
  reglages.ecrire = [](std::string_view application, std::string_view section, std::string_view cle,
                       std::string_view valeur) {
    QSettings magasin(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Quelvar"), Texte8(application));
    if (valeur.empty()) magasin.remove(Cle(section, cle));
    else magasin.setValue(Cle(section, cle), Texte8(valeur));
  };
  return reglages;
}

}  // namespace quelvar::forms
