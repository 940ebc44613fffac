#include "forms/texte/impression.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QPdfWriter>

#include "support/environnement.h"

using namespace quelvar::forms;

namespace quelvar {
namespace {

TEST(Impression, PagesFoldLongLinesAndKeepFormFeeds) {
  struct Cas {
    QString texte;
    QList<QStringList> pages;
  };
  const Cas cas[] = {
      {"", {{""}}},
      {"abcde\r\nfg\r\n", {{"abcde", "fg"}}},
      {"abcdefgh\n\nx", {{"abcde", "fgh", ""}, {"x"}}},
      {"a\n\fb\n", {{"a", ""}, {"b"}}},
      {"1\n2\n3\n4\n", {{"1", "2", "3"}, {"4"}}},
  };
  for (const Cas& c : cas) EXPECT_EQ(MettreEnPages(c.texte, 5, 3), c.pages) << c.texte.toStdString();
}

// The media box of the first page, as the file says it.
QByteArray Format(const QString& fichier) {
  QFile pdf(fichier);
  if (!pdf.open(QIODevice::ReadOnly)) return {};
  const QByteArray octets = pdf.readAll();
  const auto debut = octets.indexOf("/MediaBox");
  return octets.mid(debut, octets.indexOf(']', debut) - debut);
}

TEST(Impression, PdfTurnsThePageForLongLines) {
  const essai::DossierTemporaire dossier;
  const QString fichier = QString::fromStdString((dossier.Chemin() / "a.pdf").string());
  ASSERT_TRUE(EcrirePdf(fichier, "court\n", "ENQ.TAP"));
  EXPECT_TRUE(Format(fichier).contains("595")) << Format(fichier).toStdString();
  EXPECT_LT(Format(fichier).indexOf("595"), Format(fichier).indexOf("842"));
  ASSERT_TRUE(EcrirePdf(fichier, QString(70, u'x') + QString(60, u' ') + "\r\n", "ENQ.TAP"));
  EXPECT_LT(Format(fichier).indexOf("595"), Format(fichier).indexOf("842"));
  ASSERT_TRUE(EcrirePdf(fichier, QString(110, u'x') + "\n", "ENQ.TAP"));
  EXPECT_GT(Format(fichier).indexOf("595"), Format(fichier).indexOf("842"));
  EXPECT_FALSE(EcrirePdf(QString::fromStdString((dossier.Chemin() / "absent" / "a.pdf").string()), "x", "x"));
}

TEST(Impression, CountsThePagesOfTheWholeText) {
  const essai::DossierTemporaire dossier;
  QPdfWriter papier(QString::fromStdString((dossier.Chemin() / "a.pdf").string()));
  papier.setPageSize(QPageSize(QPageSize::A4));
  EXPECT_EQ(ImprimerTexte(papier, "a\n\fb\n\fc\n", "titre", 2, 2), 3);
  const int pages = ImprimerTexte(papier, QString("x\n").repeated(1000), "titre");
  EXPECT_GT(pages, 1000 / 80);  // an A4 page holds some 65 lines
  EXPECT_LT(pages, 1000 / 50);
}

}  // namespace
}  // namespace quelvar
