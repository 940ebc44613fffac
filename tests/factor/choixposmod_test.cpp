#include "factor/choixposmod.h"

#include <gtest/gtest.h>

#include "factor/modalites.h"
#include "support/environnement.h"

namespace quelvar {
namespace {

FichierPos Lire(std::string_view contenu) {
  const essai::DossierTemporaire dossier;
  essai::EcrireOctets(dossier.Chemin() / "ENQ.POS", contenu);
  return LirePos(dossier.Chemin() / "ENQ.POS");
}

const std::string_view kEnquete =
    "T\n10\n"
    "SEX   1 2 $Sexe$ &ACT&\n"
    "AGE   2 5 &SUP& $Age$\n"
    "CSP   312\n"
    "SEX   5 3 &ACT&\n";

using Rangs = std::vector<std::size_t>;

TEST(ChoixQuestions, MarksFillTheListsOfEachMode) {
  const FichierPos pos = Lire(kEnquete);
  const struct {
    ModePosmod mode;
    Rangs actives, supplementaires;
  } cas[] = {{ModePosmod::Afc, {0, 3}, {1}}, {ModePosmod::Regr, {0, 1, 3}, {}}, {ModePosmod::Modi, {0, 3}, {}}};
  for (const auto& c : cas) {
    const ChoixQuestions choix = ChoixDesMarques(pos, c.mode);
    EXPECT_EQ(choix.Rangs(Statut::Actif), c.actives);
    EXPECT_EQ(choix.Rangs(Statut::Supplementaire), c.supplementaires);
  }
}

TEST(ChoixQuestions, NamesTakeQuestionsInTheirOrderAndTellWhatIsMissing) {
  const FichierPos pos = Lire(kEnquete);
  std::vector<std::string> inconnues;
  const ChoixQuestions choix = ChoixDesNoms(pos, ModePosmod::Afc, {"CSP", "SEX"}, {"SEX", "SEX", "age"}, inconnues);
  EXPECT_EQ(choix.Rangs(Statut::Actif), (Rangs{0, 2}));
  EXPECT_EQ(choix.Rangs(Statut::Supplementaire), Rangs{3}) << "the second question of that name";
  EXPECT_EQ(inconnues, (std::vector<std::string>{"SEX", "age"}));
  EXPECT_EQ(ChoixDesNoms(pos, ModePosmod::Regr, {"SEX"}, {"AGE"}, inconnues).Rangs(Statut::Actif), (Rangs{0, 1}));
}

TEST(ChoixQuestions, ModalitiesCountOneMoreAQuestionWithZeroCodes) {
  const FichierPos pos = Lire(kEnquete);
  const ChoixQuestions choix = ChoixDesMarques(pos, ModePosmod::Afc);
  EXPECT_EQ(CompterModalites(pos, choix, Statut::Actif, true), 7);
  EXPECT_EQ(CompterModalites(pos, choix, Statut::Actif, false), 5);
  EXPECT_EQ(CompterModalites(pos, choix, Statut::Supplementaire, true), 6);
}

TEST(ChoixQuestions, ListTextsAreTenColumnsThenTheLabel) {
  const FichierPos pos = Lire("T\n1\nAAA   1 5A $Libre$\nBBB  2\nCCC   37\n");
  EXPECT_EQ(LigneDeListe(pos, 0), "AAA   1  5 Libre");
  EXPECT_EQ(TexteQuestion(pos, 1), "BBB  2    ");
  EXPECT_EQ(TexteQuestion(pos, 2), "CCC   3 7 ");
}

TEST(ChoixQuestions, RefusalsComeInTheOrderOfTheForm) {
  const struct {
    bool individus;
    NomsDIndividus noms;
    std::int64_t actives, supplementaires;
    std::string_view refus;
  } cas[] = {
      {true, {true, {}, 0}, 0, 0, "Pas de position de début définie"_w},
      {true, {true, 3, 0}, 0, 0, "Pas de largeur du numéro définie"_w},
      {false, {true, {}, 0}, 3, 0, ""},
      {true, {true, 3, 1}, 0, 0, "Pas de modalités définies"_w},
      {false, {}, 0, 4, "Pas de modalités actives définies"_w},
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

TEST(PlanModalites, ActiveQuestionsFirstAndCodesUp) {
  const FichierPos pos = Lire("T\n1\nAAA   1 1 &SUP&\nB     2 2 &ACT&\nCCC   3 0 &ACT&\n");
  const auto noms = [&](bool codesZero) {
    std::vector<std::string> resultat;
    const PlanModalites plan = PlanifierModalites(pos, ChoixDesMarques(pos, ModePosmod::Afc), codesZero);
    for (const ModaliteCreee& modalite : plan.modalites) resultat.push_back(modalite.nom);
    return resultat;
  };
  EXPECT_EQ(noms(true), (std::vector<std::string>{"B  0", "B  1", "B  2", "CCC0", "AAA0", "AAA1"}));
  EXPECT_EQ(noms(false), (std::vector<std::string>{"B  1", "B  2", "AAA1"}));
}

}  // namespace
}  // namespace quelvar
