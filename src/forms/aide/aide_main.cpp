// Makes the help at build time: "quelvar-aide page SOURCE TARGET" copies the help page without the notices of what is
// not available for the entries that the menu has, "quelvar-aide note SOURCE TARGET" prints a method note as a PDF.
#include <QApplication>
#include <QBuffer>
#include <QFile>
#include <QPdfWriter>
#include <QRegularExpression>
#include <QSaveFile>
#include <QTextDocument>
#include <cstdio>
#include <cstring>

#include "forms/aide/aide.h"

namespace {

bool Ecrire(const QString& fichier, const QByteArray& octets) {
  QSaveFile cible(fichier);
  return cible.open(QIODevice::WriteOnly) && cible.write(octets) == octets.size() && cible.commit();
}

// The note of two builds has the same bytes: the date of the day is overwritten, its length kept, since the table at
// the end of a PDF counts bytes.
void OublierLaDate(QByteArray& pdf) {
  for (const char* cle : {"/CreationDate (D:", "<xmp:CreateDate>", "<xmp:ModifyDate>", "<xmp:MetadataDate>"}) {
    for (qsizetype place = pdf.indexOf(cle); place >= 0; place = pdf.indexOf(cle, place)) {
      place += static_cast<qsizetype>(std::strlen(cle));
      for (; place < pdf.size() && pdf[place] != ')' && pdf[place] != '<'; ++place)
        if (pdf[place] >= '0' && pdf[place] <= '9') pdf[place] = '0';
    }
  }
}

bool Imprimer(const QString& fichier, const QString& html) {
  QTextDocument note;
  note.setDefaultFont(QFont(QStringLiteral("Liberation Serif"), 11));
  note.setHtml(html);
  QBuffer pdf;
  pdf.open(QIODevice::WriteOnly);
  {
    QPdfWriter papier(&pdf);
    papier.setPageSize(QPageSize(QPageSize::A4));
    papier.setTitle(note.metaInformation(QTextDocument::DocumentTitle));
    papier.setCreator(QStringLiteral("Quelvar"));
    note.print(&papier);
  }
  QByteArray octets = pdf.data();
  OublierLaDate(octets);
  return Ecrire(fichier, octets);
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
