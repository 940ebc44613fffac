#include "forms/editeur/recherche.h"

#include <gtest/gtest.h>

#include <QTextDocument>
#include <vector>

using namespace quelvar::forms;

namespace quelvar {
namespace {

TEST(Recherche, OccurrencesOfALine) {
  struct Cas {
    const char* ligne;
    OptionsRecherche options;
    bool enArriere;
    std::vector<int> places;  // one after the other from one end
  };
  const Cas cas[] = {
      {"SEX1 sex2 Sexe", {"sex"}, false, {0, 5, 10}},
      {"SEX1 sex2 Sexe", {"sex"}, true, {10, 5, 0}},
      {"SEX1 sex2 Sexe", {"SEX", true}, false, {0}},
      {"ÉTÉ été", {"été"}, false, {0, 4}},
      {"LEC LEC1 (LEC) LEC_ LEC", {"LEC", true, true}, false, {0, 10, 20}},
      {"LEC LEC1 (LEC) LEC_ LEC", {"LEC", true, true}, true, {20, 10, 0}},
      {"a,b,,c", {",", true, true}, false, {1, 3, 4}},  // no word: nothing to be part of
      {"aaaa", {"aa"}, false, {0, 2}},
      {"", {"x"}, false, {}},
      {"", {"x"}, true, {}},
  };
  for (const Cas& c : cas) {
    const QString ligne = QString::fromUtf8(c.ligne);
    std::vector<int> places;
    qsizetype depuis = c.enArriere ? ligne.size() : 0;
    for (;;) {
      const qsizetype place = ChercherDansLigne(ligne, c.options, depuis, c.enArriere);
      if (place < 0) break;
      places.push_back(static_cast<int>(place));
      depuis = c.enArriere ? place : place + c.options.motif.size();
    }
    EXPECT_EQ(places, c.places) << c.ligne << " / " << c.options.motif.toStdString();
  }
}

TEST(Recherche, GoesThroughTheLinesBothWays) {
  QTextDocument texte;
  texte.setPlainText("un deux\n\nDeux\nfin deux");
  const OptionsRecherche options{"deux"};
  QTextCursor curseur(&texte);
  std::vector<int> places;
  while (const auto trouve = ChercherDansTexte(curseur, options, false)) {
    EXPECT_TRUE(EstOccurrence(*trouve, options));
    places.push_back(trouve->selectionStart());
    curseur = *trouve;
  }
  EXPECT_EQ(places, (std::vector<int>{3, 9, 18}));
  curseur.movePosition(QTextCursor::End);
  places.clear();
  while (const auto trouve = ChercherDansTexte(curseur, options, true)) {
    places.push_back(trouve->selectionStart());
    curseur = *trouve;
  }
  EXPECT_EQ(places, (std::vector<int>{18, 9, 3}));
  EXPECT_FALSE(EstOccurrence(QTextCursor(&texte), options));
}

TEST(Recherche, ReplacesEverythingInOneStep) {
  struct Cas {
    const char* avant;
    OptionsRecherche options;
    const char* remplacement;
    int nombre;
    const char* apres;
  };
  const Cas cas[] = {
      {"1;2\n;3;\n", {";"}, "", 3, "12\n3\n"},
      {"a\na\n", {"a"}, "aa", 2, "aa\naa\n"},  // what was put in is not looked at again
      {"Sex sex\nfin", {"sex", true}, "SEX", 1, "Sex SEX\nfin"},
      {"rien", {"x"}, "y", 0, "rien"},
  };
  for (const Cas& c : cas) {
    QTextDocument texte;
    texte.setPlainText(c.avant);
    EXPECT_EQ(RemplacerTout(texte, c.options, c.remplacement), c.nombre);
    EXPECT_EQ(texte.toPlainText(), c.apres);
    texte.undo();
    EXPECT_EQ(texte.toPlainText(), c.avant);
  }
}

}  // namespace
}  // namespace quelvar
