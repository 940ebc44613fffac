#include "modalities/liste/choix.h"

#include <gtest/gtest.h>

#include "modalities/liste/modalites.h"

using namespace quelvar::modalities;

namespace quelvar {
namespace {

TEST(ChoixQuestions, ModalitiesHaveALimitAndNamesMatterOnlyWithIndividuals) {
  const struct {
    bool individus;
    NomsDIndividus noms;
    std::int64_t actives, supplementaires;
    std::string_view refus;
  } cas[] = {
      {false, {true, {}, 0}, 3, 0, ""},
      {false, {}, 3500, 1, "Trop de modalités définies (Act+Sup>3500)"_w},
      {false, {}, 3499, 1, ""},
  };
  for (const auto& c : cas)
    EXPECT_EQ(RefusDeLancer(c.individus, c.noms, c.actives, c.supplementaires), c.refus)
        << c.actives << '+' << c.supplementaires;
}

TEST(Marques, TheMarkChangesAndNothingElse) {
  const struct {
    std::string_view ligne;
    Statut statut;
    std::string_view attendue;
  } cas[] = {
      {"AAA   1 5 $Age$ 1,2=1", Statut::Actif, "AAA   1 5 $Age$ 1,2=1 &ACT&"},
      {"AAA   1 5 $Age$ &SUP& 1,2=1", Statut::Actif, "AAA   1 5 $Age$ &ACT& 1,2=1"},
      {"AAA   1 5&ACT& x", Statut::Supplementaire, "AAA   1 5&SUP& x"},
      {"AAA   1 5  &SUP& x", Statut::Aucun, "AAA   1 5  x"},
      {"AAA   1 5&ACT& x", Statut::Aucun, "AAA   1 5 x"},
      {"AAA   1 5 ", Statut::Aucun, "AAA   1 5 "},
      {"AAA   1 5", Statut::Supplementaire, "AAA   1 5 &SUP&"},
      // Columns 1 to 9 are the question's own.
      {"&ACT&15", Statut::Aucun, "&ACT&15"},
      {"AAA   15", Statut::Actif, "AAA   15 &ACT&"},
      {"AAA   1", Statut::Actif, "AAA   1  &ACT&"},
      // A line with two marks comes out with one.
      {"AAA   1 5 &ACT& &SUP&", Statut::Actif, "AAA   1 5 &ACT&"},
      {"AAA   1 5 &ACT& &SUP& y", Statut::Aucun, "AAA   1 5 y"},
      {"AAA   1 5&ACT&&SUP&", Statut::Aucun, "AAA   1 5"},
  };
  for (const auto& c : cas) {
    const std::string ligne = LigneAvecMarque(c.ligne, c.statut);
    EXPECT_EQ(ligne, c.attendue);
    EXPECT_EQ(LireLigneQuestion(ligne).statut, c.statut) << ligne;
    EXPECT_EQ(LireLigneQuestion(ligne).codeMax, LireLigneQuestion(c.ligne).codeMax) << ligne;
  }
}

}  // namespace
}  // namespace quelvar
