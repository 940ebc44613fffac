#include "capture/preparation.h"

#include <gtest/gtest.h>

#include "capture/cible.h"
#include "capture/presence.h"
#include "support/environnement.h"

namespace quelvar::capture {
namespace {

TEST(PreparationDImport, ChoicesOfTheSameColumnsAreFound) {
  const essai::DossierTemporaire dossier;
  std::vector<ChoixDeColonne> colonnes(2);
  colonnes[0].intitule = "Sexe";
  colonnes[1].intitule = "Age";
  EXPECT_FALSE(ChercherAnciensChoix(dossier.Chemin(), "ENQ", colonnes));
  essai::EcrireOctets(dossier.Chemin() / "AUTRE.IMC", "Sexe=codes;SEX\n");
  essai::EcrireOctets(dossier.Chemin() / "MEME.IMC", "Sexe=codes;SX1\nAge=codes;AGE\n");
  auto trouves = ChercherAnciensChoix(dossier.Chemin(), "ENQ", colonnes);
  ASSERT_TRUE(trouves);
  EXPECT_EQ(trouves->fichier.filename(), "MEME.IMC");
  EXPECT_EQ(trouves->choix.at(0).nom, "SX1");
  EXPECT_EQ(ChercherAnciensChoix(dossier.Chemin(), "autre", colonnes)->choix.size(), 1U) << "its own go first";
  essai::EcrireOctets(dossier.Chemin() / "ENQ.IMC", "n'importe quoi\n");
  EXPECT_NE(ChercherAnciensChoix(dossier.Chemin(), "ENQ", colonnes)->refus, "");
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
  for (const char* refuse : {" ", "a/b", "a:b", "a\tb"}) EXPECT_NE(RefusDuGenerique(refuse), "") << refuse;

  for (const char* nom : {"b.XLSX", "a.ods", "lettre.odt", ".cache.csv", "t.TXT", "d.dbf"}) ecrire(nom);
  std::filesystem::create_directory(la / "dossier.csv");
  std::string noms;
  for (const FichierImportable& fichier : FichiersImportables(la)) noms += fichier.chemin.filename().string() + " ";
  EXPECT_EQ(noms, "((())).csv a.ods b.XLSX d.dbf enq.csv Enquête été 2024 (v2).csv t.TXT ");
}

}  // namespace
}  // namespace quelvar::capture
