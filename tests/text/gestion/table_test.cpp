#include <gtest/gtest.h>

#include <algorithm>

#include "support/programme.h"
#include "text/concordance/concord.h"
#include "text/concordance/edition.h"
#include "text/concordance/ordre.h"
#include "text/gestion/agregation.h"
#include "text/gestion/motsdeslignes.h"
#include "text/gestion/nomsdeslignes.h"
#include "text/gestion/suplmot.h"

using namespace quelvar::text;

namespace quelvar {
namespace {

class RunGestion : public essai::RunDeProgramme {
 protected:
  RunGestion() {
    Ecrire("ENQ.MOD", "ENQ\r\n LIGN=3 LSUP=1 COL=2 FMT=1 DE=0 \r\nSEX1   H\r\nSEX2   F\r\n**\r\nun     un\r\n");
    Ecrire("ENQ.BRT", "   999un\r\n   999deux\r\n   322trois\r\n");
  }
};

TEST_F(RunGestion, MergedCellsWidenTheTableAndKeepItsMargin) {
  AgregationOuverte ouverte = OuvrirAgregation(contexte_);
  ASSERT_TRUE(ouverte.ouverte);
  Agregation& agregation = ouverte.agregation;
  for (LigneDeTable& ligne : agregation.table.lignes) ligne.marquee = true;
  EXPECT_TRUE(Agreger(agregation, "tout").empty());
  ASSERT_EQ(agregation.table.lignes.size(), 1U);
  EXPECT_EQ(agregation.table.lignes[0].nom, "  21");
  EXPECT_EQ(agregation.table.lignes[0].cellules, "2020");
  EXPECT_EQ(agregation.table.largeur, 2);
  EXPECT_EQ(agregation.compteRendu.size(), 9U) << "three rows, two lines of remark, three rows, the name";
  EXPECT_EQ(Agreger(agregation, "rien"), "Il n'y a pas de mots à regrouper"_w);
}

TEST_F(RunGestion, ARowOfTheUsersOwnNameIsFoundByItAndGivesItsWords) {
  Ecrire("ENQ.BRT", "   999données\r\n   999deuxdeux      \r\n   322ées \r\n"_w);
  Agregation agregation = OuvrirAgregation(contexte_).agregation;
  const NomsDesLignes noms(agregation.table.lignes);
  EXPECT_EQ(noms.NomDe(0, agregation.table.lignes[0].intitule), "données"_w);
  EXPECT_EQ(noms.NomDe(2, agregation.table.lignes[2].intitule), "ées"_w) << "no part of another label";
  for (const std::size_t ligne : {0U, 1U}) agregation.table.lignes[ligne].marquee = true;
  EXPECT_TRUE(Agreger(agregation, "tout").empty());
  EXPECT_EQ(MotsDeLaLigne(agregation.table.lignes.back()),
            (std::vector<std::string>{std::string("données"_w), "deux"}));
}

// A row goes by the name that the actions before have given it, and by no former one.
TEST_F(RunGestion, ARenamedRowIsFoundByItsNewName) {
  using Genre = OptionsSuplMot::Action::Genre;
  const std::string brt = Lire("ENQ.BRT");
  const struct {
    std::vector<OptionsSuplMot::Action> actions;
    std::string_view refus;
  } cas[] = {
      {{{Genre::IntituleLigne, "un", "cinq"}, {Genre::LigneSup, "cinq"}}, ""},
      {{{Genre::IntituleLigne, "un", "cinq"}, {Genre::LigneSup, "un"}}, "La ligne un n'est pas dans le tableau"},
      {{{Genre::IntituleLigne, "un", "deux"}, {Genre::LigneSup, "deux"}},
       "La ligne deux est plusieurs fois dans le tableau"},
      {{{Genre::IntituleLigne, "un", "deux"}, {Genre::IntituleLigne, "trois", "un"}, {Genre::LigneSup, "un"}}, ""},
  };
  for (const auto& c : cas) {
    Ecrire("ENQ.BRT", brt);
    Ecrire("ENQ.MOD", "ENQ\r\n LIGN=3 LSUP=0 COL=2 FMT=1 DE=0 \r\nSEX1   H\r\nSEX2   F\r\n");
    EXPECT_EQ(SuplMot(contexte_, {c.actions}), c.refus.empty() ? Fin::Normale : Fin::Arret) << montre_;
    EXPECT_TRUE(Dit(c.refus)) << montre_;
    EXPECT_EQ(Lire("ENQ.MOD").find("ISUP=1") != std::string::npos, c.refus.empty());
  }
}

// A lexical table with its words: "un" and "une" stand twice each, "le" three times.
class RunMotsDesLignes : public essai::RunDeProgramme {
 protected:
  RunMotsDesLignes() {
    Ecrire("ENQ.MOD", "ENQ\r\n LIGN=3 LSUP=0 COL=1 FMT=1 DE=0 \r\nSEX1   H\r\n");
    Ecrire("ENQ.BRT", "   22un  un        \r\n   22une une       \r\n   33le  le        \r\n");
    std::string dat;
    for (const std::string_view mot : {"le", "le", "le", "un", "un", "une", "une"})
      dat += Joindre(
          {"1", CadreGauche(mot, 4), CadreGauche(mot, 10), "$$", std::string(30, '*'), CadreGauche(mot, 45), "\r\n"});
    Ecrire("ENQ.DAT", dat);
  }

  // What the window and the companion show above the lines.
  static std::string Tete(const Contexte& contexte, std::vector<MotsCherches> cherches) {
    const Concordances concordances = ChercherConcordances(contexte, std::move(cherches));
    const std::string texte =
        TexteDeConcordances(concordances, RangsDansLOrdre(concordances, OrdreDeConcordance::Fichier));
    return texte.substr(0, texte.find("\r\n\r\n"));
  }
  static std::string TeteDeLaLigne(const Contexte& contexte, std::string_view nom) {
    const TableGeree table = OuvrirTable(contexte).table;
    return Tete(contexte, {CherchesDeLaLigne(table.lignes.at(NomsDesLignes(table.lignes).Trouver(nom).rang))});
  }
  Contexte Sous(std::string generique) const {
    Contexte contexte = contexte_;
    contexte.generique = std::move(generique);
    return contexte;
  }
};

TEST_F(RunMotsDesLignes, AMergedRowKeepsItsWordsThroughEveryNewTable) {
  ASSERT_EQ(TabMotAgreg(contexte_, {.actions = {{std::nullopt, "un", {"un", "une"}}}}), Fin::Normale);
  EXPECT_EQ(Lire("ENR.AGR"), "ENR\r\n   4 un\r\n     un une\r\n");
  EXPECT_EQ(TeteDeLaLigne(Sous("ENR"), "un"), "Concordance de : un (un, une)\r\n4 ligne(s) de ENR.DAT");
  EXPECT_EQ(
      Tete(Sous("ENR"), CherchesDesMots({"un"})),
      std::string("Concordance de : un\r\n2 ligne(s) de ENR.DAT\r\nCe sont les lignes du mot un seul ; la ligne un "
                  "du tableau (fréquence 4) réunit :\r\n    un, une"_w));
  ASSERT_EQ(SuplMot(Sous("ENR"), {{{OptionsSuplMot::Action::Genre::LigneSup, "un"},
                                   {OptionsSuplMot::Action::Genre::IntituleLigne, "le", "LE"}}}),
            Fin::Normale);
  EXPECT_EQ(Lire("ENR.AGR"), "ENR\r\n   3 LE\r\n     le\r\n   4 un\r\n     un une\r\n");
  EXPECT_EQ(TeteDeLaLigne(Sous("ENR"), "LE"), "Concordance de : LE (le)\r\n3 ligne(s) de ENR.DAT");
  ASSERT_EQ(TabMotAgreg(Sous("ENR"), {.actions = {{std::nullopt, "tous", {"LE", "un"}}}}), Fin::Normale);
  EXPECT_EQ(Lire("ENS.AGR"), "ENS\r\n   7 tous\r\n     le un une\r\n");
  EXPECT_EQ(Concord(Sous("ENS"), {.lignes = {"tous"}}), Fin::Normale);
  EXPECT_TRUE(Dit("Concordance de : tous (le, un, une)\r\n7 ligne(s) de ENS.DAT\r\n\r\n"));
  ASSERT_EQ(SuplMot(Sous("ENR"), {{{OptionsSuplMot::Action::Genre::IntituleLigne, "LE", "le"}}}), Fin::Normale);
  EXPECT_EQ(Tete(Sous("ENR"), CherchesDesMots({"le"})), "Concordance de : le\r\n3 ligne(s) de ENR.DAT");
}

TEST_F(RunMotsDesLignes, RowsWhoseWordsAreNotKnownOrNotThoseOfTheTextSaySo) {
  ASSERT_EQ(TabMotAgreg(contexte_, {.actions = {{std::nullopt, "un", {"un", "une"}}}}), Fin::Normale);
  const std::string seul(
      "Concordance de : un\r\n2 ligne(s) de ENR.DAT\r\n*** Attention : la ligne un du tableau (fréquence 4), seul le "
      "mot lui-même est montré (2 ligne(s))\r\n    ENR.AGR, qui dit les mots d'une ligne agrégée, "_w);
  const std::string bon = Lire("ENR.AGR");
  for (const std::string_view faux :
       {"", "ENR\r\n   5 un\r\n     un une\r\n", "ENR\r\n   4 un\r\n", "ENR\r\n   4 une\r\n     un une\r\n"}) {
    Ecrire("ENR.AGR", faux);
    EXPECT_EQ(TeteDeLaLigne(Sous("ENR"), "un"), seul + "ne va pas avec ENR.BRT") << faux;
  }
  EXPECT_EQ(SuplMot(Sous("ENR"), {}), Fin::Normale);
  EXPECT_EQ(Lire("ENR.AGR"), "ENR\r\n   4 une\r\n     un une\r\n") << "a label corrected by hand may come back";
  std::filesystem::remove(contexte_.repertoire / "ENR.AGR");
  EXPECT_EQ(TeteDeLaLigne(Sous("ENR"), "un"), seul + "n'existe pas");
  EXPECT_EQ(Tete(Sous("ENR"), CherchesDesMots({"un"})), seul + "n'existe pas");
  Ecrire("ENR.AGR", bon);
  Ecrire("ENR.DAT", Lire("ENR.DAT").substr(0, 4 * 94));  // the words of another text
  EXPECT_EQ(
      TeteDeLaLigne(Sous("ENR"), "un"),
      std::string("Concordance de : un (un, une)\r\n1 ligne(s) de ENR.DAT\r\nMot absent : une\r\n*** Attention : la "
                  "ligne un du tableau (fréquence 4) et ses mots (1 ligne(s)) ne vont pas ensemble : ce tableau "
                  "n'est pas celui de ces mots"_w));
}

TEST_F(RunGestion, AMergeWithoutANameStopsTheRun) {
  EXPECT_EQ(TabMotAgreg(contexte_, {.actions = {{std::nullopt, " ", {"un"}}}}), Fin::Arret);
  EXPECT_TRUE(Dit("*** Il faut indiquer le nom qu'aura la ligne"));
  EXPECT_FALSE(Existe("ENR.brt"));
}

TEST_F(RunGestion, ASortByFactorWithoutCoordinatesTellsWhatIsMissing) {
  EXPECT_EQ(TabMotAgreg(contexte_, {.actions = {{TriDeLignes{.cle = CleDeLignes::Facteur}}}}), Fin::Arret);
  ASSERT_EQ(boites_.size(), 1U);
  EXPECT_NE(boites_[0].find("Comme il n'existe pas encore de fichier des coordonnées factorielles"_w),
            std::string::npos);
}

TEST_F(RunGestion, ABurtTableIsLeftToItsOwnForms) {
  Ecrire("ENQ.MOD", "ENQ\r\n BRT=2 FMT=1 \r\nSEX1   H\r\nSEX2   F\r\n");
  Ecrire("ENQ.BRT", "SEX120\r\nSEX203\r\n");
  EXPECT_EQ(SuplMot(contexte_, {}), Fin::Arret);
  EXPECT_TRUE(Dit("ENQ.MOD est d'un tableau de Burt (BRT=2)"));
  EXPECT_FALSE(OuvrirAgregation(contexte_).ouverte);
}

TEST_F(RunGestion, ALongLabelIsFoundAmongTheFactorsByWhatTheyKeepOfIt) {
  Ecrire("ENQ.BRT", "   999a label of more than the twenty-five\r\n   999deux\r\n   322trois\r\n");
  Ecrire("ENQ.FAJ", "SEX1  100   -500  900\r\n");
  Ecrire("ENQ.FAI", "   9  100    500  900a label of more than the \r\n   9  100    100  100deux\r\n");
  Agregation agregation = OuvrirAgregation(contexte_).agregation;
  EXPECT_TRUE(TrierLignes(agregation, {.cle = CleDeLignes::Facteur}, contexte_).empty());
  EXPECT_EQ(agregation.table.lignes.back().intitule, "a label of more than the twenty-five");
}

TEST_F(RunGestion, CoordinatesOfAnotherStateOfTheTableAreToldInABox) {
  // Columns of 5 and 5, rows of 4, 4 and 2: the two first are apart from the margin by as much, the third is on it.
  Ecrire("ENQ.MOD", "ENQ\r\n LIGN=3 LSUP=0 COL=2 FMT=1 DE=0 \r\nSEX1   H\r\nSEX2   F\r\n**\r\nun     un\r\n");
  Ecrire("ENQ.BRT", "   440un\r\n   404deux\r\n   211trois\r\n");
  const std::string faj = "SEX1  500    100  500\r\nSEX2  500   -100  500\r\n";
  const std::string fai = "   4  500    100  500un\r\n   4  500   -100  500deux\r\n   2    0      0    0trois\r\n";
  const auto trier = [&](const std::string& colonnes, const std::string& lignes) -> std::string {
    Ecrire("ENQ.FAJ", colonnes);
    Ecrire("ENQ.FAI", lignes);
    boites_.clear();
    Agregation agregation = OuvrirAgregation(contexte_).agregation;
    const std::vector<std::string> fautes = TrierLignes(agregation, {.cle = CleDeLignes::Facteur}, contexte_);
    if (!fautes.empty()) return fautes.back();
    TrierLignes(agregation, {.cle = CleDeLignes::Facteur}, contexte_);
    EXPECT_LE(boites_.size(), 1U) << "told once";
    return boites_.empty() ? std::string() : boites_.front();
  };
  const auto avec = [](std::string texte, std::string_view ancien, std::string_view nouveau) {
    return texte.replace(texte.find(ancien), ancien.size(), nouveau);
  };
  EXPECT_EQ(trier(faj, fai), "");
  EXPECT_NE(trier(faj, avec(fai, "deux", "zzz")).find("1 ligne(s) du tableau n'y sont pas, 1 de ses lignes"),
            std::string::npos);
  EXPECT_NE(trier(faj, avec(fai, "   2    0      0    0trois\r\n", "")).find("n'y sont pas : le tri"),
            std::string::npos);
  EXPECT_NE(trier(faj, avec(fai, "   4  500", "   4  400")).find("relancez l'analyse"), std::string::npos);
  EXPECT_NE(trier(avec(faj, "SEX1  500", "SEX1  400"), fai).find("relancez l'analyse"), std::string::npos);
  EXPECT_TRUE(trier(avec(avec(faj, "SEX1", "DOM1"), "SEX2", "DOM2"), fai).ends_with("aucune de ses colonnes n'y est"));
}

TEST_F(RunGestion, ATableThatDoesNotGoWithItsModalitiesIsRefused) {
  const struct {
    std::string_view brt;
    std::string_view dit;
  } cas[] = {
      {"   999un\r\n   3\r\n", "La ligne 2 de ENQ.BRT est trop courte"},
      {"   9 9 9un\r\n   9 9 9deux\r\n   3 212trois\r\n", "Les cases de ENQ.BRT ont 2 caractère(s)"_w},
      {"   9   9   9un\r\n   9   9   9deux\r\n   3   2   1trois\r\n", "Les cases de ENQ.BRT ont 4 caractère(s)"_w},
      {"   91011un  un        \r\n   91312deuxdeux      \r\n   32211troitrois     \r\n",
       "Les cases de ENQ.BRT ont 2 caractère(s)"_w},
      {"  10 910un\r\n   91 8 deux\r\n   3 2 1trois\r\n", "La ligne 2 de ENQ.BRT a des cases décalées"_w},
      {"   999un\r\n   9 9deux\r\n   3a1trois\r\n", "La ligne 3 de ENQ.BRT a autre chose que des nombres"},
  };
  for (const auto& [brt, dit] : cas) {
    const std::string_view largeur = brt.starts_with("  10") ? "2" : "1";
    Ecrire("ENQ.MOD", Joindre({"ENQ\r\n LIGN=3 COL=2 FMT=", largeur, " \r\nSEX1   H\r\nSEX2   F\r\n"}));
    Ecrire("ENQ.BRT", brt);
    EXPECT_FALSE(OuvrirAgregation(contexte_).ouverte) << brt;
    const TableOuverte table = OuvrirSuplMot(contexte_);
    ASSERT_EQ(table.message.size(), 2U) << brt;
    EXPECT_TRUE(table.message[1].starts_with(dit)) << table.message[1];
  }
}

TEST_F(RunGestion, OtherSupplementaryRowsThanBeforeAreNamed) {
  Ecrire("ENQ.BRT", "   211un\r\n   312deux\r\n   413trois\r\n   514quatre\r\n");
  using Action = OptionsTabMotAgreg::Action;
  const struct {
    std::vector<Action> actions;
    std::string_view dit;
  } cas[] = {
      {{{std::nullopt, "tout", {"un", "deux"}}}, "Le deviennent : tout. Ne le sont plus : quatre. Vérifiez"_w},
      {{{std::nullopt, "quatre", {"quatre"}}}, ""},
      {{{std::nullopt, "tout", {"un", "deux"}}, {TriDeLignes{.cle = CleDeLignes::Intitule}}},
       "Le deviennent : trois. Ne le sont plus : quatre. Vérifiez"_w},
      {{{std::nullopt, "quatre", {"quatre"}}, {TriDeLignes{.cle = CleDeLignes::Frequence}}}, ""},
  };
  for (const auto& [actions, dit] : cas) {
    boites_.clear();
    EXPECT_EQ(TabMotAgreg(contexte_, {.actions = actions, .remplacer = true}), Fin::Normale);
    ASSERT_EQ(boites_.size(), dit.empty() ? 0U : 1U) << dit;
    if (!dit.empty()) {
      EXPECT_NE(boites_[0].find(dit), std::string::npos) << boites_[0];
    }
    EXPECT_NE(Lire("ENR.MOD").find(" ISUP=1 "), std::string::npos);
  }
}

TEST_F(RunGestion, TheSumOfFrequenciesThatTheirColumnsCutIsCalledAMinimum) {
  Ecrire("ENQ.BRT", "999999un\r\n  1099deux\r\n   322trois\r\n");
  Agregation agregation = OuvrirAgregation(contexte_).agregation;
  for (const std::size_t ligne : {0U, 1U}) agregation.table.lignes[ligne].marquee = true;
  EXPECT_TRUE(Agreger(agregation, "tout").empty());
  EXPECT_EQ(agregation.table.lignes.back().nom, "9999");
  const std::vector<std::string>& dites = agregation.compteRendu;
  EXPECT_TRUE(std::any_of(dites.begin(), dites.end(), [](const std::string& ligne) {
    return ligne.starts_with("*** Attention : cette fréquence est un minimum, 1 ligne(s)"_w);
  }));
}

TEST_F(RunGestion, TheLastRowsOpenAsSupplementaryAndAllMayBe) {
  TableOuverte ouverte = OuvrirSuplMot(contexte_);
  EXPECT_EQ(TexteDeLigne(ouverte.table, 2), "   3 S trois");
  for (const std::size_t ligne : {0U, 1U}) BasculerLigne(ouverte.table, ligne);
  EXPECT_EQ(EnregistrerSuplMot(contexte_, ouverte.table), Fin::Normale);
  EXPECT_TRUE(Lire("ENQ.MOD").starts_with("ENQ\r\n IMAX=3 JMAX=2 ISUP=3 FMT=1 \r\n"));
}

}  // namespace
}  // namespace quelvar
