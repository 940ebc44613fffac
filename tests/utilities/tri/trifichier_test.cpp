#include "utilities/tri/trifichier.h"

#include <gtest/gtest.h>

#include <random>

#include "core/calcul/tris.h"
#include "support/programme.h"

namespace quelvar::utilities {
namespace {

// Texts of a few letters, so that many are equal; some longer than a key.
std::vector<std::string> TextesAuHasard(std::size_t nombre) {
  std::mt19937 hasard(4);
  std::vector<std::string> textes;
  for (std::size_t i = 0; i < nombre; ++i) {
    std::string texte(hasard() % 4 + (hasard() % 5 == 0 ? 18 : 0), 'a');
    for (char& c : texte) c = " az\xE9"[hasard() % 4];
    textes.push_back(texte);
  }
  return textes;
}

TEST(TriChaines, LeavesEqualKeysWhereTheHeapSortOfWholeKeysLeavesThem) {
  struct Fiche {
    std::basic_string<unsigned char> cle;
    std::uint32_t rang;
  };
  for (const std::size_t nombre : {0U, 1U, 2U, 3U, 10U, 777U}) {
    const std::vector<std::string> textes = TextesAuHasard(nombre);
    std::vector<CleDeTri> cles;
    std::vector<Fiche> fiches;
    for (const std::string& texte : textes) {
      std::string cle = texte.substr(0, kLargeurCle);
      cle.resize(kLargeurCle, ' ');
      fiches.push_back({{cle.begin(), cle.end()}, static_cast<std::uint32_t>(cles.size())});
      cles.push_back(CleDe(texte));
    }
    for (const SensDeTri sens : {SensDeTri::Croissant, SensDeTri::Decroissant}) {
      std::vector<Fiche> attendu = fiches;
      TrierParTas(std::span<Fiche>(attendu), [sens](const Fiche& a, const Fiche& b) {
        return sens == SensDeTri::Croissant ? a.cle < b.cle : a.cle > b.cle;
      });
      const std::vector<std::uint32_t> ordre = TriChaines(cles, sens, nullptr);
      ASSERT_EQ(ordre.size(), nombre);
      for (std::size_t i = 0; i < nombre; ++i) EXPECT_EQ(ordre[i], attendu[i].rang) << nombre << " / " << i;
    }
  }
}

class RunTriFichier : public essai::RunDeProgramme {};

TEST_F(RunTriFichier, AFieldThatIsWiderThanAKeySortsByItsHeadAndIsToldSo) {
  Ecrire("A.TXT", "abcdefghijklmnopqrst2\nabcdefghijklmnopqrst1\n");
  EXPECT_EQ(TriFichier(contexte_, {"A.TXT", "C.TXT", "1", "21"}), Fin::Normale);
  EXPECT_EQ(Lire("C.TXT"), "abcdefghijklmnopqrst1\r\nabcdefghijklmnopqrst2\r\n") << "as the heap leaves equal keys";
  EXPECT_EQ(boites_, std::vector<std::string>{std::string("Le tri se fait sur les 20 premiers caractères du champ"_w)});
}

TEST_F(RunTriFichier, WithoutAGenericTheReportIsShownAndGoes) {
  Ecrire("A.TXT", "b\na\n");
  contexte_.generique.clear();
  EXPECT_EQ(TriFichier(contexte_, {"A.TXT", "C.TXT", "1", "1"}), Fin::Normale);
  EXPECT_FALSE(Existe("$$$.prt"));
  EXPECT_EQ(Lire("C.TXT"), "a\r\nb\r\n");
}

TEST_F(RunTriFichier, TheReportIsNeitherSortedNorTheResult) {
  Ecrire("A.TXT", "b\na\n");
  Ecrire("ENQ.PRT", "former\n");
  EXPECT_EQ(TriFichier(contexte_, {"A.TXT", "ENQ.PRT", "1", "1"}), Fin::Arret);
  EXPECT_EQ(TriFichier(contexte_, {"ENQ.PRT", "C.TXT", "1", "1"}), Fin::Arret);
  EXPECT_EQ(Lire("ENQ.PRT"), "former\n");
  EXPECT_FALSE(Existe("C.TXT"));
}

TEST_F(RunTriFichier, AmongTheUtilitiesAnUnexpectedErrorHasTheirWords) {
  Ecrire("A.TXT", "");
  const OptionsTriFichier options{.fichierA = "A.TXT", .fichierC = "C.TXT", .position = "1", .largeur = "1"};
  EXPECT_EQ(TriDesUtilitaires(contexte_, options), Fin::Arret);
  EXPECT_TRUE(Dit(" notez le numéro suivant : ERREUR NUMERO = 11 \r\n et prévenez l'assistance technique"_w))
      << montre_;
  EXPECT_EQ(TriFichier(contexte_, options), Fin::Arret);
  EXPECT_TRUE(Dit(" notez le numero =  11 Division"));
}

TEST_F(RunTriFichier, AFieldThatCannotBeCutLeavesTheFiles) {
  Ecrire("A.TXT", "b\na\n");
  EXPECT_EQ(TriFichier(contexte_, {"A.TXT", "A.TXT", "-1", "1"}), Fin::Arret);
  EXPECT_EQ(TriFichier(contexte_, {"A.TXT", "A.TXT", "1", "-1"}), Fin::Arret);
  EXPECT_EQ(Lire("A.TXT"), "b\na\n");
}

TEST(RefusDeTrier, NamesTheFirstMissingItem) {
  EXPECT_EQ(RefusDeTrier({}), "Vous devez entrer le nom du fichier A à trier"_w);
  EXPECT_EQ(RefusDeTrier({"A"}), "Vous devez entrer le nom du fichier C résultant du tri"_w);
  EXPECT_EQ(RefusDeTrier({"A", "C"}), "Vous devez entrer la position initiale du champ de tri");
  EXPECT_EQ(RefusDeTrier({"A", "C", "3"}), "Vous devez entrer la largeur du champ de tri (10 max)");
  EXPECT_TRUE(RefusDeTrier({"A", "C", "0"}).empty());
  EXPECT_TRUE(RefusDeTrier({"A", "C", "3", "4"}).empty());
  EXPECT_TRUE(RefusDuFormulaire({"A", "C", "3", "10"}).empty());
  for (const std::string position : {"-1", "x", "1.5"})
    EXPECT_EQ(RefusDuFormulaire({"A", "C", position, "4"}), "Vous devez entrer la position initiale du champ de tri");
  for (const std::string largeur : {"11", "0", "-2", "x"})
    EXPECT_EQ(RefusDuFormulaire({"A", "C", "3", largeur}), "Vous devez entrer la largeur du champ de tri (10 max)");
}

}  // namespace
}  // namespace quelvar::utilities
