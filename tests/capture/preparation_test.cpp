#include "capture/preparation.h"

#include <gtest/gtest.h>

#include "support/environnement.h"

namespace quelvar::capture {
namespace {

TEST(PreparationDImport, BoundsAsTheyAreTyped) {
  using Bornes = std::vector<double>;
  EXPECT_EQ(BornesDe("15 25 35"), (Bornes{15, 25, 35}));
  EXPECT_EQ(BornesDe(" 0;2,5;10|20 "), (Bornes{0, 2.5, 10, 20}));
  EXPECT_EQ(BornesDe("15"), (Bornes{15}));
  for (const char* refuse : {"", " ; ", "15 15", "25 15", "15 x", "15 25x"})
    EXPECT_EQ(BornesDe(refuse), std::nullopt) << refuse;
  EXPECT_EQ(TexteDesBornes({0, 2.5, 10}), "0 2.5 10");
}

TEST(PreparationDImport, TextsInTheOrderOfTheirCodes) {
  FaitsDeColonne colonne;
  colonne.valeurs = {{"Femme", 2}, {"Homme", 5}, {"NSP", 9}};
  const auto dit = [&](const ChoixDeColonne& choix) {
    std::string texte;
    for (const TexteCode& code : TextesCodes(choix, colonne))
      texte += std::to_string(code.code) + code.texte + std::to_string(code.effectif) + " ";
    return texte;
  };
  ChoixDeColonne choix;
  EXPECT_EQ(dit(choix), "1Femme2 2Homme5 3NSP9 ");
  choix.nonReponses = {"NSP"};
  EXPECT_EQ(dit(choix), "0NSP9 1Femme2 2Homme5 ");
  choix.ordre = Ordre::Frequence;
  EXPECT_EQ(dit(choix), "0NSP9 1Homme5 2Femme2 ");
  choix.ordre = Ordre::Donne;
  choix.nonReponses.clear();
  choix.textes = {"NSP"};
  EXPECT_EQ(dit(choix), "1NSP9 2Femme2 3Homme5 ") << "those not named come behind";
}

TEST(PreparationDImport, GenericsAndFilesOfADirectory) {
  const essai::DossierTemporaire dossier;
  const Chemin la = dossier.Chemin();
  const auto ecrire = [&](const char* nom) {
    essai::EcrireOctets(la / nom, "x");
    return la / nom;
  };
  const Chemin accents = ecrire("Enquête été 2024 (v2).csv");
  EXPECT_EQ(GeneriquePropose(la, accents), "ENQUETEETE20");
  EXPECT_EQ(GeneriquePropose(la, ecrire("((())).csv")), "ENQ");
  const Chemin source = ecrire("enq.csv");
  EXPECT_EQ(GeneriquePropose(la, source), "ENQ") << "the source itself is no other data set";
  EXPECT_FALSE(GeneriqueOccupe(la, "ENQ", source));
  EXPECT_TRUE(GeneriqueOccupe(la, "ENQ", accents)) << "its CSV would be written over";
  ecrire("ENQ.POS");
  EXPECT_EQ(GeneriquePropose(la, source), "ENR");
  EXPECT_EQ(RefusDuGenerique("ENQ"), "");
  EXPECT_NE(RefusDuGenerique(" "), "");
  EXPECT_NE(RefusDuGenerique("a/b"), "");

  for (const char* nom : {"b.XLSX", "a.ods", "lettre.odt", ".cache.csv", "t.TXT", "d.dbf"}) ecrire(nom);
  std::filesystem::create_directory(la / "dossier.csv");
  std::string noms;
  for (const FichierImportable& fichier : FichiersImportables(la)) noms += fichier.chemin.filename().string() + " ";
  EXPECT_EQ(noms, "((())).csv a.ods b.XLSX d.dbf enq.csv Enquête été 2024 (v2).csv t.TXT ");
}

}  // namespace
}  // namespace quelvar::capture
