// Makes the help at build time: "quelvar-aide page SOURCE TARGET" copies the help page without the notices of what is
// not available for the entries that the menu has, "quelvar-aide note SOURCE TARGET" prints a method note as a PDF.
#include <QApplication>
#include <QFile>
#include <QPdfWriter>
#include <QSaveFile>
#include <QTextDocument>
#include <cstdio>

#include "forms/aide/aide.h"

namespace {

bool Ecrire(const QString& fichier, const QByteArray& octets) {
  QSaveFile cible(fichier);
  return cible.open(QIODevice::WriteOnly) && cible.write(octets) == octets.size() && cible.commit();
}

bool Imprimer(const QString& fichier, const QString& html) {
  QTextDocument note;
  note.setDefaultFont(QFont(QStringLiteral("Liberation Serif"), 11));
  note.setHtml(html);
  QSaveFile cible(fichier);
  if (!cible.open(QIODevice::WriteOnly)) return false;
  {
    QPdfWriter papier(&cible);
    papier.setPageSize(QPageSize(QPageSize::A4));
    papier.setTitle(note.metaInformation(QTextDocument::DocumentTitle));
    papier.setCreator(QStringLiteral("Quelvar"));
    note.print(&papier);
  }
  return cible.commit();
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  const QStringList arguments = QCoreApplication::arguments();
  if (arguments.size() != 4) return 2;
  QFile source(arguments[2]);
  if (!source.open(QIODevice::ReadOnly)) {
    std::fprintf(stderr, "%s: %s\n", qPrintable(arguments[2]), qPrintable(source.errorString()));
    return 1;
  }
  const QString texte = QString::fromUtf8(source.readAll());
  const bool fait = arguments[1] == QStringLiteral("page")
                        ? Ecrire(arguments[3], quelvar::forms::SansAvisPerimes(texte).toUtf8())
                        : Imprimer(arguments[3], texte);
  if (!fait) std::fprintf(stderr, "%s: cannot be written\n", qPrintable(arguments[3]));
  return fait ? 0 : 1;
}
