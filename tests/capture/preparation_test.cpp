#include "capture/preparation.h"

#include <gtest/gtest.h>

#include "capture/apercu/choix/reglages.h"
#include "capture/apercu/sorties/classes.h"
#include "capture/cible.h"
#include "capture/presence.h"
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

TEST(PreparationDImport, TextsThatCountOrAreZero) {
  FaitsDeColonne colonne;
  colonne.valeurs = {{"Non", 4}, {"Oui", 3}};
  ChoixDeColonne choix;
  choix.genre = Genre::Multiple;
  choix.reponses = {"Oui"};
  std::vector<TexteCompte> textes = TextesComptes(choix, colonne);
  ASSERT_EQ(textes.size(), 2U);
  EXPECT_FALSE(textes[0].compte);
  EXPECT_TRUE(textes[1].compte);
  textes[0].compte = true;
  EXPECT_EQ(AvecTextesComptes(choix, textes).reponses, (std::vector<std::string>{"Non", "Oui"}));

  colonne.fautives = {{2, "abc"}, {5, "NSP"}, {9, "abc"}};
  choix.genre = Genre::Codes;
  choix.nonReponses = {"NSP"};
  textes = TextesComptes(choix, colonne);
  ASSERT_EQ(textes.size(), 2U);
  EXPECT_EQ(textes[0].effectif, 2);
  EXPECT_TRUE(textes[0].compte);
  EXPECT_FALSE(textes[1].compte);
  textes[0].compte = false;
  EXPECT_EQ(AvecTextesComptes(choix, textes).nonReponses, (std::vector<std::string>{"abc", "NSP"}));
  choix.genre = Genre::Longs;
  EXPECT_TRUE(TextesComptes(choix, colonne).empty());
}

TEST(PreparationDImport, LabelsOfEqualGroupsBeforeTheImport) {
  FaitsDeColonne colonne;
  colonne.valeurs = {{"18", 2}, {"25", 2}, {"40", 1}, {"61", 1}, {"99", 9}};
  colonne.remplies = 15;
  colonne.minimum = 18;
  colonne.maximum = 61;
  ChoixDeColonne choix;
  choix.genre = Genre::Classes;
  choix.groupes = 3;
  choix.nonReponses = {"99"};
  EXPECT_EQ(LibellesDesClasses(choix, colonne), (std::vector<std::string>{"18-24", "25-39", "40-61"}));
  colonne.valeurs.clear();  // more than are kept
  EXPECT_TRUE(LibellesDesClasses(choix, colonne).empty());
}

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
