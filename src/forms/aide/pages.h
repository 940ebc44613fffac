// The pages of the help and the method notes, by the entries of the menu "Aide".
#pragma once

#include <QSet>
#include <QString>
#include <QUrl>
#include <functional>

namespace quelvar::forms {

class PagesDAide {
 public:
  // `ouvrir` shows an address in the program that the user has for it, `refus` tells that there is none.
  PagesDAide(QString dossier, std::function<bool(const QUrl&)> ouvrir, std::function<void(const QString&)> refus);

  // Whether the document of an entry is there, with the place in it.
  bool Existe(const QString& entree) const { return presentes_.contains(entree); }
  void Ouvrir(const QString& entree) const;

 private:
  QString dossier_;
  std::function<bool(const QUrl&)> ouvrir_;
  std::function<void(const QString&)> refus_;
  QSet<QString> presentes_;
};

}  // namespace quelvar::forms
