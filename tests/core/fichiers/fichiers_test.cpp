#include "core/fichiers/fichiers.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/environnement.h"
#include "support/erreur.h"

namespace quelvar {
namespace {

using essai::NumeroLeve;

std::vector<std::string> Lignes(const Chemin& chemin) {
  std::vector<std::string> lignes;
  LecteurLignes lecteur(chemin);
  for (std::string_view ligne; lecteur.Lire(ligne);) lignes.emplace_back(ligne);
  return lignes;
}

class Fichiers : public ::testing::Test {
 protected:
  Chemin Ecrire(const std::string& nom, std::string_view octets) {
    essai::EcrireOctets(dossier_.Chemin() / nom, octets);
    return dossier_.Chemin() / nom;
  }
  const Chemin& Dossier() const { return dossier_.Chemin(); }

 private:
  essai::DossierTemporaire dossier_;
};

TEST_F(Fichiers, EveryLineEndIsAccepted) {
  const std::vector<std::string> ab = {"a", "b"};
  for (const std::string_view octets : {"a\r\nb\r\n", "a\nb\n", "a\r\nb", "a\nb\x1A", "a\r\nb\r\n\x1A", "a\nb\r"})
    EXPECT_EQ(Lignes(Ecrire("F", octets)), ab) << octets;
  EXPECT_EQ(Lignes(Ecrire("F", "")), std::vector<std::string>{});
  EXPECT_EQ(Lignes(Ecrire("F", "\x1A")), std::vector<std::string>{});
  EXPECT_EQ(Lignes(Ecrire("F", "\r\n\r\n")), (std::vector<std::string>{"", ""}));
  EXPECT_EQ(Lignes(Ecrire("F",
                          "a\rb\x1A"
                          "c")),
            std::vector<std::string>{"a\rb\x1A"
                                     "c"});
}

TEST_F(Fichiers, LinesLongerThanTheBufferComeWhole) {
  const std::string longue(700000, 'x');
  EXPECT_EQ(Lignes(Ecrire("F", "a\r\n" + longue + "\r\nb\n" + longue)),
            (std::vector<std::string>{"a", longue, "b", longue}));
}

TEST_F(Fichiers, NamesAreFoundWithoutRegardToCase) {
  const Chemin petit = Ecrire("enq.pos", "");
  EXPECT_EQ(ChercherFichier(Dossier(), "ENQ.POS"), petit);
  const Chemin melange = Ecrire("Enq.pos", "");
  EXPECT_EQ(ChercherFichier(Dossier(), "ENQ.POS"), melange) << "the first in byte order";
  const Chemin exact = Ecrire("ENQ.POS", "");
  EXPECT_EQ(ChercherFichier(Dossier(), "ENQ.POS"), exact);
  EXPECT_EQ(CheminDEcriture(Dossier(), "eNQ.POS"), exact) << "an existing file keeps its name";
  EXPECT_EQ(CheminDEcriture(Dossier(), "Neuf.TAP"), Dossier() / "Neuf.TAP");
  EXPECT_EQ(ChercherFichier(Dossier(), "ABSENT"), std::nullopt);
  std::filesystem::create_directory(Dossier() / "Sous");
  const Chemin accent = Ecrire("Sous/Été.txt", "");
  EXPECT_EQ(ChercherFichier(Dossier(), "SOUS/ÉTÉ.TXT"_w), accent) << "each component is resolved";
}

TEST_F(Fichiers, AReplacementIsAllOrNothing) {
  const Chemin cible = Ecrire("enq.DAT", "ancien");
  {
    Remplacement abandonne(Dossier(), "ENQ.DAT");
    abandonne.Fichier().Ligne("nouveau");
  }
  EXPECT_EQ(LireOctets(cible), "ancien");
  {
    Remplacement valide(Dossier(), "ENQ.DAT");
    valide.Fichier().Ligne("nouveau");
    valide.Valider();
  }
  EXPECT_EQ(LireOctets(cible), "nouveau\r\n");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(Dossier()), {}), 1) << "no scratch file is left";
}

TEST_F(Fichiers, FailuresHaveTheirNumbers) {
  std::filesystem::create_directory(Dossier() / "D");
  EXPECT_EQ(NumeroLeve([&] { LecteurLignes lecteur(Dossier() / "ABSENT"); }), kFichierIntrouvable);
  EXPECT_EQ(NumeroLeve([&] { LecteurLignes lecteur(Dossier() / "D"); }), kAccesFichier);
  EXPECT_EQ(NumeroLeve([&] { Ecrivain ecrivain(Dossier() / "D"); }), kAccesFichier);
  EXPECT_EQ(NumeroLeve([&] { Ecrivain ecrivain(Dossier() / "ABSENT" / "F"); }), kCheminIntrouvable);
  EXPECT_EQ(NumeroLeve([&] { LecteurLignes(Ecrire("VIDE", "")).LireObligatoire(); }), kFinDeFichierDepassee);
  Ecrivain plein("/dev/full");
  plein.Ligne("un octet de trop");
  EXPECT_EQ(NumeroLeve([&] { plein.Fermer(); }), kDisquePlein);
}

// The bound of the contract, whatever the reader's buffer has room for.
TEST_F(Fichiers, ALineBeyondTheBoundIsNoText) {
  const std::string longue(LecteurLignes::kLigneAuPlus, 'x');
  std::string_view ligne;
  EXPECT_EQ(LecteurLignes(Ecrire("JUSTE", longue + "\nb\n")).LireObligatoire().size(), longue.size());
  for (const char* fin : {"x", "x\n", "x\nb\n"})
    EXPECT_EQ(NumeroLeve([&] { LecteurLignes(Ecrire("TROP", longue + fin)).Lire(ligne); }), kMemoireInsuffisante);
}

TEST_F(Fichiers, BytesPassTheBufferInOrder) {
  std::string attendu;
  {
    Ecrivain ecrivain(Dossier() / "F");
    for (int i = 0; i < 40; ++i) {
      const std::string morceau(static_cast<std::size_t>(1) << (i % 20), static_cast<char>('a' + i % 26));
      ecrivain.Ecrire(morceau);
      attendu += morceau;
    }
    ecrivain.Fermer();
  }
  EXPECT_TRUE(LireOctets(Dossier() / "F") == attendu);
}

}  // namespace
}  // namespace quelvar
