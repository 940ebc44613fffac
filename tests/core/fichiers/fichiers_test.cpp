#include "core/fichiers/fichiers.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "core/enquete/listemod.h"
#include "core/programme/lieunomme.h"
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

TEST_F(Fichiers, ALineBeyondTheBoundIsRefused) {
  const Chemin longue = Ecrire("LONGUE", "");
  std::string_view ligne;
  std::filesystem::resize_file(longue, LecteurLignes::kLigneAuPlus);
  LecteurLignes juste(longue);
  ASSERT_TRUE(juste.Lire(ligne));
  EXPECT_EQ(ligne.size(), LecteurLignes::kLigneAuPlus);
  std::filesystem::resize_file(longue, LecteurLignes::kLigneAuPlus + 3);
  LecteurLignes lecteur(longue);
  EXPECT_EQ(NumeroLeve([&] { lecteur.Lire(ligne); }), kMemoireInsuffisante);
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

// What is asked of a file that is not there, or of its place, names it; a text that has named it goes without.
TEST_F(Fichiers, FailuresNameTheirFile) {
  const Chemin absent = Dossier() / "ENQ.POS";
  const Chemin ailleurs = Dossier() / "absent" / "ENQ.POS";
  const struct {
    std::function<void()> action;
    std::string_view texte;
  } cas[] = {
      {[&] { LireOctets(absent); }, "Fichier introuvable (ENQ.POS)"},
      {[&] { LongueurFichier(absent); }, "Fichier introuvable (ENQ.POS)"},
      {[&] { LecteurLignes lecteur(absent); }, "Fichier introuvable (ENQ.POS)"},
      {[&] { Ecrivain ecrivain(ailleurs); }, "Chemin d'accès introuvable (ENQ.POS)"_w},
      {[&] { Remplacement fichier(ailleurs); }, "Chemin d'accès introuvable (ENQ.POS)"_w},
      {[&] { RemplacerModalites(Dossier(), "ENQ.MOD", {}); }, "Fichier introuvable (ENQ.MOD)"},
  };
  for (const auto& c : cas) {
    try {
      c.action();
      ADD_FAILURE() << c.texte;
    } catch (const Erreur& erreur) {
      EXPECT_EQ(TexteErreur(erreur), c.texte);
      EXPECT_EQ(Joindre({TexteErreurDuFichierNomme(erreur), " (", erreur.Ou().fichier, ")"}), c.texte);
    }
  }
  const Erreur situee = Erreur(kDepassementCapacite).Situer({"ENQ.DAT", 12, 5});
  EXPECT_EQ(TexteErreurDuFichierNomme(situee), "Dépassement de capacité (ligne 12, colonne 5)"_w);
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
