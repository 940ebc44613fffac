// Makes the help at build time: "quelvar-aide page SOURCE TARGET" copies the help page without the notices of what is
// not available for the entries that the menu has, "quelvar-aide note SOURCE TARGET" prints a method note as a PDF, in
// the style of the note.css beside it.
#include <QApplication>
#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHashSeed>
#include <QPdfWriter>
#include <QRegularExpression>
#include <QSaveFile>
#include <QTextDocument>
#include <cstdio>
#include <cstring>
#include <optional>

#include "forms/publication/avisperimes.h"

namespace {

// Nothing, and the failure told, when it cannot be read.
std::optional<QString> Lire(const QString& fichier) {
  QFile source(fichier);
  if (source.open(QIODevice::ReadOnly)) return QString::fromUtf8(source.readAll());
  std::fprintf(stderr, "%s: %s\n", qPrintable(fichier), qPrintable(source.errorString()));
  return std::nullopt;
}

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

bool EcrireNote(const QString& fichier, const QString& html, const QString& style) {
  QTextDocument note;
  note.setDefaultStyleSheet(style);
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
  QHashSeed::setDeterministicGlobalSeed();  // the fonts of a PDF come in the order of a hash table
  QApplication application(argc, argv);
  const QStringList arguments = QCoreApplication::arguments();
  const bool page = arguments.value(1) == QStringLiteral("page");
  if (arguments.size() != 4 || (!page && arguments[1] != QStringLiteral("note"))) {
    std::fputs("usage: quelvar-aide page|note SOURCE TARGET\n", stderr);
    return 2;
  }
  const std::optional<QString> texte = Lire(arguments[2]);
  if (!texte) return 1;
  bool fait = false;
  if (page) {
    fait = Ecrire(arguments[3], quelvar::forms::SansAvisPerimes(*texte).toUtf8());
  } else {
    const std::optional<QString> style = Lire(QFileInfo(arguments[2]).dir().filePath(QStringLiteral("note.css")));
    if (!style) return 1;
    fait = EcrireNote(arguments[3], *texte, *style);
  }
  if (!fait) std::fprintf(stderr, "%s: cannot be written\n", qPrintable(arguments[3]));
  return fait ? 0 : 1;
}
