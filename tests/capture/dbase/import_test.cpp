#include "capture/dbase/import.h"

#include <gtest/gtest.h>

#include <chrono>

#include "capture/dbase/dbf.h"
#include "capture/dbase/questions.h"
#include "capture/dbase/tableau.h"
#include "capture/noms/distincts.h"
#include "core/chiffres/nombres.h"
#include "support/erreur.h"
#include "support/programme.h"

using namespace quelvar;
using namespace quelvar::capture;

namespace {

struct Champ3 {
  std::string nom;
  char type;
  int largeur;
};

std::string Mot(std::size_t valeur) { return {static_cast<char>(valeur & 255), static_cast<char>(valeur >> 8)}; }

// A dBase file of those fields; `donnees` are the records with their deletion marks.
std::string Dbf(const std::vector<Champ3>& champs, std::size_t enregistrements, const std::string& donnees,
                char langue = 0) {
  std::size_t longueur = 1;
  for (const Champ3& champ : champs) longueur += static_cast<std::size_t>(champ.largeur);
  std::string octets = "\x03" + std::string(3, '\0') + Mot(enregistrements & 0xFFFF) + Mot(enregistrements >> 16) +
                       Mot(33 + 32 * champs.size()) + Mot(longueur) + std::string(17, '\0') + langue +
                       std::string(2, '\0');
  for (const Champ3& champ : champs) {
    std::string description(32, '\0');
    description.replace(0, champ.nom.size(), champ.nom);
    description[11] = champ.type;
    description[16] = static_cast<char>(champ.largeur);
    octets += description;
  }
  return octets + '\r' + donnees;
}

class ImportDbfTest : public essai::RunDeProgramme {
 protected:
  Fin Importer() { return ImportDbf(contexte_, {}); }
};

}  // namespace

TEST(Dbf, EnteteQuiMent) {
  const std::string bon = Dbf({{"A", 'N', 1}, {"B", 'C', 3}, {"VIDE", 'C', 0}, {"C", 'D', 8}}, 66000, "");
  const EnteteDbf entete = LireEnteteDbf(bon);
  EXPECT_EQ(entete.annonces, 66000U);
  ASSERT_EQ(entete.champs.size(), 3U) << "a field without width is none";
  EXPECT_EQ(entete.sansLargeur, std::vector<std::string>{"VIDE "}) << "and is told";
  EXPECT_EQ(entete.champs[2].position, 5U);
  EXPECT_EQ(entete.LongueurChamps(), 12U);

  std::string avecFin = bon;
  avecFin[64] = '\r';  // the end mark of the fields, where the header length would let one more follow
  EXPECT_EQ(LireEnteteDbf(avecFin).champs.size(), 1U);
  EXPECT_EQ(LireEnteteDbf(bon.substr(0, 70)).champs.size(), 1U) << "the second description is not wholly there";
  EXPECT_EQ(essai::NumeroLeve([&] { LireEnteteDbf(bon.substr(0, 31)); }), kFinDeFichierDepassee);

  for (const char version : {'\x02', '\x04', '\x8C', '\x00'}) {  // other layouts, or none
    std::string autre = bon;
    autre[0] = version;
    EXPECT_FALSE(LireEnteteDbf(autre).VersionConnue());
  }
  EXPECT_TRUE(entete.VersionConnue());

  // 162 bytes of header, records of 13.
  EXPECT_EQ(EnregistrementsEntiers(entete, entete.longueurEntete + 13 * 5 + 12), 5U);
  EXPECT_EQ(EnregistrementsEntiers(entete, 10), 0U);
  EnteteDbf sansLongueur = entete;
  sansLongueur.longueurEnregistrement = 0;
  EXPECT_EQ(EnregistrementsEntiers(sansLongueur, 200), 66000U);
  sansLongueur.annonces = 4'000'000'000;
  EXPECT_EQ(EnregistrementsEntiers(sansLongueur, 200), kEnregistrementsVides);
}

TEST(Dbf, PageDeCode) {
  struct Cas {
    char langue;
    std::string_view attendu;  // of the bytes 82 85 E1 B0, "é", "à", "ß" and a shade in both pages of DOS
  };
  for (const Cas& cas : {Cas{'\x01', "éàß?"_w}, Cas{'\x02', "éàß?"_w}, Cas{'\x0E', "éàß?"_w},
                         Cas{'\x03', std::string_view("\x82\x85\xE1\xB0")}, Cas{'\x7F', "\x82\x85\xE1\xB0"}}) {
    SCOPED_TRACE(static_cast<int>(cas.langue));
    const EnteteDbf entete = LireEnteteDbf(Dbf({{"T", 'C', 4}, {"N", 'N', 1}}, 1, "", cas.langue));
    ConvertisseurDbf convertisseur(entete);
    std::string ligne(5, '-');
    convertisseur.Convertir(" \x82\x85\xE1\xB0\x82", ligne.data());
    EXPECT_EQ(ligne, std::string(cas.attendu) + "\x82") << "only fields of characters are converted";
    EXPECT_EQ(convertisseur.SansEquivalent(), cas.attendu.ends_with('?') ? 1U : 0U);
  }
}

TEST(Noms, PositionsEtDoubles) {
  const std::pair<std::size_t, const char*> positions[] = {{1, "001"},    {999, "999"},  {1000, "A00"}, {1099, "A99"},
                                                           {3599, "Z99"}, {3600, "AA0"}, {9999, "YP9"}};
  for (const auto& [position, nom] : positions) EXPECT_EQ(NomDePosition(position), nom);
  EXPECT_EQ(NomAvecLettres(0, 4) + NomAvecLettres(25999, 4) + NomAvecLettres(26000, 4) + NomAvecLettres(93600, 4),
            "A000Z999AA00AAA0");
  EXPECT_EQ(essai::NumeroLeve([] { NomAvecLettres(26 * 100 + 26 * 26 * 10, 3); }), kIndiceHorsSelection);

  std::vector<std::string> noms = {"AGE", "AGE", "2", "SEX", "4", " "};
  const auto blanc = [](std::string_view nom) { return Rogner(nom).empty(); };
  const auto rang = [](std::size_t i) { return std::to_string(i + 1); };
  EXPECT_EQ(DistinguerNoms(noms, blanc, rang), (std::vector<std::size_t>{0, 1, 2, 5}));
  EXPECT_EQ(noms, (std::vector<std::string>{"1", "2", "3", "SEX", "4", "6"})) << "\"2\" gives way to the second AGE";
  noms = {" AB", "AB ", "A B"};
  EXPECT_EQ(DistinguerNoms(noms, blanc, rang), (std::vector<std::size_t>{0, 1})) << "blanks around make no other name";
}

TEST_F(ImportDbfTest, PlusDeNeufMilleNeufCentsPositions) {
  Ecrire("ENQ.DAT", std::string(10050, '1') + "\r\n");
  EXPECT_EQ(Importer(), Fin::Normale);
  const std::string pos = Lire("ENQ.POS");
  EXPECT_TRUE(pos.ends_with("YP99999 1\r\n")) << pos.substr(pos.size() - 40);
  ASSERT_EQ(boites_.size(), 1U);
  EXPECT_EQ(boites_[0], "Les positions au-delà de 9999 ne sont pas des questions : *.POS ne peut pas les désigner"_w);
}

// A header that announces a hundred thousand records of no byte, and fields for nine thousand columns.
TEST_F(ImportDbfTest, QuestionsDerriereLesEnregistrements) {
  std::vector<Champ3> champs(60, {"C", 'C', 150});
  champs.insert(champs.begin(), {"SEX", 'N', 1});
  std::string octets = Dbf(champs, 100000, "");
  octets.replace(10, 2, Mot(0));
  Ecrire("ENQ.DBF", octets);
  const auto debut = std::chrono::steady_clock::now();
  EXPECT_EQ(Importer(), Fin::Normale);
  EXPECT_LT(std::chrono::steady_clock::now() - debut, std::chrono::seconds(2));
  EXPECT_EQ(Lire("ENQ.DAT").size(), 200000U) << "empty lines";
  const std::string rapport = Lire("ENQ.IMP");
  EXPECT_NE(rapport.find("Question UU1 Position 9001    Code-max.   0\r\n   0 100000\r\nTot. 100000 100\r\n"),
            std::string::npos);
}

// Records shorter than their fields would be cut anywhere: no table is made of them. The data keep the records as they
// stand, and what is missing reads as blanks.
TEST_F(ImportDbfTest, EnregistrementsPlusCourtsQueLesChamps) {
  const std::string donnees = "   111213 un   212223 deu  ";
  const std::string bon = Dbf({{"NOM", 'C', 3}, {"C1", 'N', 2}, {"C2", 'N', 2}, {"LONG", 'C', 4}}, 2, donnees);
  struct Cas {
    std::size_t longueur;
    bool tableau;
    bool arret;
  };
  for (const Cas& cas : {Cas{11, false, false}, Cas{12, false, false}, Cas{0, false, false}, Cas{11, true, true},
                         Cas{0, true, true}, Cas{12, true, false}}) {
    SCOPED_TRACE(testing::Message() << cas.longueur << (cas.tableau ? " tableau" : ""));
    for (const char* ancien : {"ENQ.DAT", "ENQ.BRT", "ENQ.MOD"}) Ecrire(ancien, "ancien\r\n");
    Ecrire("ENQ.DBF", std::string(bon).replace(10, 2, Mot(cas.longueur)));
    montre_.clear();
    EXPECT_EQ(cas.tableau ? ImportTableau(contexte_, {}) : Importer(), cas.arret ? Fin::Arret : Fin::Normale);
    EXPECT_EQ(Dit(Joindre({"L'en-tête du fichier ENQ.DBF annonce des enregistrements de "_w, Nombre(cas.longueur),
                           " octets alors que les champs en demandent 12 avec la marque d'effacement : les champs "
                           "sont introuvables\r\nVerifiez et corrigez avant de relancer\r\n"})),
              cas.arret)
        << montre_;
    EXPECT_EQ(Lire("ENQ.DAT") == "ancien\r\n", cas.arret || cas.tableau);
    EXPECT_EQ(Lire("ENQ.BRT") + Lire("ENQ.MOD") == "ancien\r\nancien\r\n", cas.arret || !cas.tableau);
  }
}

TEST_F(ImportDbfTest, PlusDEnregistrementsVidesQueLaLimite) {
  Ecrire("ENQ.DBF", Dbf({{"SEX", 'N', 1}}, 15'400'000, "").replace(10, 2, Mot(0)));
  EXPECT_EQ(Importer(), Fin::Normale);
  ASSERT_EQ(boites_.size(), 1U);
  EXPECT_NE(boites_[0].find("(15400000 enregistrements annoncés). Ce nombre est la limite que le programme se donne"_w),
            std::string::npos)
      << boites_[0];
}

TEST_F(ImportDbfTest, ValeurAuDelaDesCodes) {
  Ecrire("ENQ.DBF", Dbf({{"C", 'C', 3}}, 2, " 1E9 120"));
  EXPECT_EQ(Importer(), Fin::Normale);
  EXPECT_TRUE(Dit("Code-max. 120\r\n   0     2\r\n")) << montre_;
  ASSERT_EQ(boites_.size(), 1U);
  EXPECT_TRUE(boites_[0].starts_with("Valeurs trop grandes pour être un code, comptées comme le code 0 : 1"_w))
      << boites_[0];
}

// Cells that are no codes stay in .DAT, and are told by their field with the first of them; cut fields hold texts.
TEST_F(ImportDbfTest, ValeursQuiNeSontPasDesCodes) {
  Ecrire("ENQ.DBF", Dbf({{"SEX", 'N', 1}, {"NOTE", 'N', 3}, {"NOM", 'C', 2}, {"LONG", 'C', 4}}, 3,
                        " 11.5 7mots 2 -5ab     x  99cd    "));
  EXPECT_EQ(Importer(), Fin::Normale);
  ASSERT_EQ(boites_.size(), 1U);
  EXPECT_EQ(boites_[0],
            "Valeurs qui ne sont pas des codes, reprises telles quelles dans *.DAT : SEX 1 (ligne 3 : \"x\"); NOTE 2 "
            "(ligne 1 : \"1.5\"); NOM 2 (ligne 2 : \"ab\"). Les programmes y lisent un nombre à décimales arrondi, un "
            "négatif ou un texte comme 0"_w);
}

TEST_F(ImportDbfTest, NomsPartagesDuPosGarde) {
  Ecrire("ENQ.POS", "D\r\n 1 \r\nAGE   1 9\r\nSEX   2 9\r\nAGE   3 9\r\n");
  Ecrire("ENQ.DAT", "123\r\n");
  EXPECT_EQ(ImportDbf(contexte_, {}), Fin::Arret);
  EXPECT_TRUE(Dit("Le nom AGE est celui de 2 questions, aux positions 1 et 3")) << montre_;
}

// The count of a hundred thousand individuals keeps a blank before it.
TEST_F(ImportDbfTest, EffectifsDeSixChiffres) {
  std::string donnees;
  for (int i = 0; i < 100000; ++i) donnees += " 1";
  Ecrire("ENQ.DBF", Dbf({{"SEX", 'N', 1}}, 100000, donnees));
  EXPECT_EQ(Importer(), Fin::Normale);
  EXPECT_TRUE(Dit("   1 100000\r\nTot. 100000 100\r\n")) << montre_;
}

// Data and a dictionary that an import replaces stay, whatever it comes to next; what is there twice is kept once.
TEST_F(ImportDbfTest, CeQuElleRemplaceReste) {
  Ecrire("ENQ.DAT", "7\r\n");
  Ecrire("ENQ.POS", "ENQ\r\n 1 \r\nSEX   1 2 $Sexe$\r\n");
  for (const char* donnees : {" 1", " 1", " 2", " 1"}) {
    Ecrire("ENQ.DBF", Dbf({{"SEX", 'N', 1}}, 1, donnees));
    EXPECT_EQ(Importer(), Fin::Normale);
  }
  EXPECT_EQ(Lire("ENQ.DA2") + Lire("ENQ.DA3") + Lire("ENQ.DA4"), "7\r\n1\r\n2\r\n");
  EXPECT_FALSE(Existe("ENQ.DA5"));
  EXPECT_EQ(Lire("ENQ.PO3"), "ENQ\r\n 1 \r\nSEX   1 2 $Sexe$\r\n") << "the labels are under no later copy";
  EXPECT_TRUE(Dit("L'ancienne sauvegarde ENQ.PO2 est conservée sous le nom ENQ.PO"_w)) << montre_;
  ASSERT_EQ(boites_.size(), 3U);
  EXPECT_EQ(boites_[0], "Le fichier ENQ.DAT est remplacé ; l'ancien est sauvegardé sous le nom ENQ.DA2"_w);
}

TEST_F(ImportDbfTest, PlusDeHuitCopies) {
  std::string copies;
  for (char lettre = 'a'; lettre < 'l'; ++lettre) {
    Ecrire("ENQ.DAT", std::string(1, lettre) + "\r\n");
    Ecrire("ENQ.DBF", Dbf({{"SEX", 'N', 1}}, 1, " 1"));
    EXPECT_EQ(Importer(), Fin::Normale);
  }
  for (const char* nom : {"DA2", "DA8", "DA9", "D10", "D11", "D12"}) copies += Lire(std::string("ENQ.") + nom).front();
  EXPECT_EQ(copies, "aghijk") << "none is written over";
}

TEST_F(ImportDbfTest, DisquePleinLaisseLesAnciensFichiers) {
  Ecrire("ENQ.DBF", Dbf({{"SEX", 'N', 1}}, 4000, std::string(8000, '1')));
  Ecrire("ENQ.DAT", "7\r\n");
  {
    const essai::DisquePlein disque(4096);
    EXPECT_EQ(Importer(), Fin::Arret);
  }
  EXPECT_EQ(Lire("ENQ.DAT"), "7\r\n");
  EXPECT_FALSE(Existe("ENQ.POS"));
}
