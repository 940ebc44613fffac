// The help as it is built beside the programs: no entry of the menu leads nowhere, no link is dead.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QMap>
#include <QXmlStreamReader>

#include "forms/aide/documents.h"
#include "forms/pilote.h"
#include "forms/qt/application.h"

using namespace quelvar::forms;

namespace {

struct Page {
  QMap<QString, int> ancres;  // how many times
  QStringList liens;
  QString erreur;
};

Page LirePage() {
  QFile fichier(quelvar::forms::DossierAide() + "/QuelvarAide.html");
  Page page;
  if (!fichier.open(QIODevice::ReadOnly)) {
    page.erreur = "no help page";
    return page;
  }
  QXmlStreamReader lecteur(&fichier);
  while (!lecteur.atEnd()) {
    if (lecteur.readNext() != QXmlStreamReader::StartElement) continue;
    if (lecteur.attributes().hasAttribute("id")) ++page.ancres[lecteur.attributes().value("id").toString()];
    if (lecteur.attributes().hasAttribute("href")) page.liens << lecteur.attributes().value("href").toString();
  }
  if (lecteur.hasError()) page.erreur = lecteur.errorString() + " line " + QString::number(lecteur.lineNumber());
  return page;
}

TEST(Aide, EveryAnchorOfTheMenuIsInThePageOnce) {
  const Page page = LirePage();
  EXPECT_EQ(page.erreur, "");
  for (const quelvar::forms::EntreeDAide& entree : quelvar::forms::EntreesDAide()) {
    if (*entree.ancre == '\0') continue;
    EXPECT_EQ(page.ancres.value(QString::fromLatin1(entree.ancre)), 1) << entree.nom << " #" << entree.ancre;
  }
  for (auto ancre = page.ancres.begin(); ancre != page.ancres.end(); ++ancre)
    EXPECT_EQ(ancre.value(), 1) << ancre.key().toStdString();
}

TEST(Aide, NoLinkIsDead) {
  const Page page = LirePage();
  ASSERT_GT(page.liens.size(), 50);
  for (const QString& lien : page.liens) {
    if (lien.startsWith(u'#')) EXPECT_TRUE(page.ancres.contains(lien.mid(1))) << lien.toStdString();
    else EXPECT_TRUE(QFile::exists(quelvar::forms::DossierAide() + u'/' + lien)) << lien.toStdString();
  }
}

TEST(Aide, EveryNoteIsAPdfThatTheMenuOpens) {
  QStringList documents;
  for (const quelvar::forms::EntreeDAide& entree : quelvar::forms::EntreesDAide())
    documents << QString::fromUtf8(entree.document);
  const QStringList notes = QDir(quelvar::forms::DossierAide()).entryList({"*.pdf"}, QDir::Files);
  EXPECT_FALSE(notes.isEmpty());
  for (const QString& note : notes) {
    EXPECT_TRUE(documents.contains(note)) << note.toStdString();
    QFile fichier(quelvar::forms::DossierAide() + u'/' + note);
    ASSERT_TRUE(fichier.open(QIODevice::ReadOnly));
    EXPECT_TRUE(fichier.read(5) == "%PDF-") << note.toStdString();
  }
}

}  // namespace
