#include "forms/texte/impression.h"

#include <gtest/gtest.h>

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
std::string Format(const QString& texte) {
  const std::string pdf = PdfDuTexte(texte, "ENQ.TAP");
  const std::size_t debut = pdf.find("/MediaBox");
  return pdf.substr(debut, pdf.find(']', debut) - debut);
}

TEST(Impression, PdfTurnsThePageForLongLines) {
  struct Cas {
    QString texte;
    bool debout;  // 595 x 842 points
  };
  for (const Cas& cas : {Cas{"court\n", true}, Cas{QString(70, u'x') + QString(60, u' ') + "\r\n", true},
                         Cas{QString(110, u'x') + "\n", false}}) {
    const std::string format = Format(cas.texte);
    EXPECT_TRUE(format.find("595") != std::string::npos && format.find("842") != std::string::npos) << format;
    EXPECT_EQ(format.find("595") < format.find("842"), cas.debout) << format;
  }
}

TEST(Impression, CountsThePagesOfTheWholeText) {
  const essai::DossierTemporaire dossier;
  QPdfWriter papier(QString::fromStdString((dossier.Chemin() / "a.pdf").string()));
  papier.setPageSize(QPageSize(QPageSize::A4));
  EXPECT_EQ(MettreSurPapier(papier, "a\n\fb\n\fc\n", "titre", 2, 2), 3);
  const int pages = MettreSurPapier(papier, QString("x\n").repeated(1000), "titre");
  EXPECT_GT(pages, 1000 / 80);  // an A4 page holds some 65 lines
  EXPECT_LT(pages, 1000 / 50);
}

}  // namespace
}  // namespace quelvar
