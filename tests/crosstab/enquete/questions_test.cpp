#include "crosstab/enquete/questions.h"

#include <gtest/gtest.h>

#include "core/panne/erreur.h"
#include "core/resultats/cadre.h"

using namespace quelvar::crosstab;

namespace quelvar {
namespace {

TEST(Intitules, SurDeuxLignes) {
  const struct {
    std::string_view texte, attendu;
  } cas[] = {
      {"Agriculteurs", "Agriculteurs"},                 // 12 characters
      {"Cadres superieurs", "Cadres      superieurs"},  // first blank from the 7th on is the 7th
      {"Professions lib.", "Professions lib."},         // it is the 12th
      {"Ouvriers qualifies", "Ouvriers    qualifies"},
      {"Non interrogees", "Non interrogees"},  // the blank at 4 is before the 7th, none behind
      {"Ne sait pas trop", "Ne sait     pas trop"},
      {"Indifferemment oui", "Indifferemment oui"},  // it is behind the 12th
      {"Court mot", "Court mot"},
  };
  for (const auto& c : cas) EXPECT_EQ(DisposerSurDeuxLignes(c.texte), c.attendu);
}

TEST(Intitules, NomsEtTextes) {
  EnqueteCroisee enquete;
  QuestionCroisee question;
  question.nom = "AGE";
  question.plafond = 40;
  enquete.intitules.Ajouter("AGE1", "Jeune  ");
  enquete.intitules.Ajouter("AGE2", "   ");
  enquete.intitules.Ajouter("AGEZ", "Trente cinq ans");
  enquete.intitules.Ajouter("AG36", "Trente six");
  const std::vector<std::string> courts = IntitulesCourts(question);
  const std::vector<std::string> etendus = IntitulesEtendus(enquete, question);
  ASSERT_EQ(courts.size(), 41U);
  EXPECT_EQ(courts[0], "AGE0");
  EXPECT_EQ(courts[10], "AGEA");
  EXPECT_EQ(courts[36], "AGE36");
  EXPECT_EQ(etendus[0], "AGE0");
  EXPECT_EQ(etendus[1], "Jeune");
  EXPECT_EQ(etendus[2], "AGE2");
  EXPECT_EQ(etendus[35], "Trente      cinq ans");
  EXPECT_EQ(etendus[36], "Trente six");
  EXPECT_EQ(etendus[37], "AG37");
  question.plafond = 100;
  EXPECT_THROW(IntitulesCourts(question), Erreur);
}

TEST(Intitules, PartagesParDeuxQuestions) {
  EnqueteCroisee enquete;
  for (const auto& [nom, codeMax] : {std::pair{"REG", 40}, {"REV", 36}, {"RE3", 5}, {"REX", 3}, {"SEX", 50}}) {
    enquete.questions.emplace_back();
    enquete.questions.back().nom = nom;
    enquete.questions.back().plafond = enquete.questions.back().codeMax = codeMax;
  }
  const auto autre = [&](std::size_t question) {
    const std::optional<IntitulePartage> partage = ChercherIntitulePartage(enquete, enquete.questions[question]);
    return partage ? partage->modalite + partage->autre : std::string();
  };
  enquete.intitules.Ajouter("RE37", "Corse");  // beyond the code-max of REV, and no code of RE3
  enquete.intitules.Ajouter("SE36", "");
  EXPECT_EQ(autre(0), "");
  enquete.intitules.Ajouter("RE36", "Bretagne");
  EXPECT_EQ(autre(0), "RE36REV");
  EXPECT_EQ(autre(1), "RE36REG");
  EXPECT_EQ(autre(2), "") << "6 is beyond its code-max";
  enquete.questions[2].plafond = enquete.questions[2].codeMax = 6;
  EXPECT_EQ(autre(2), "RE36REG");
  EXPECT_EQ(autre(3) + autre(4), "");
}

}  // namespace
}  // namespace quelvar
