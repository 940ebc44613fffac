// The golden runner must fail when it should: each row breaks one expectation of a case that is right.
#include "golden/cas.h"

#include <gtest/gtest.h>

#include "support/environnement.h"

namespace fs = std::filesystem;

namespace {

// Stands in for quelvar-batch: its first two arguments fix the clock, the third is run by the shell.
constexpr std::string_view kProgrammeFactice = "#!/bin/sh\nshift 2\neval \"$1\"\n";

struct Disposition {
  essai::DossierTemporaire temporaire;
  fs::path dossier = temporaire.Chemin() / "cas";
  fs::path programme = temporaire.Chemin() / "programme";

  explicit Disposition(const std::string& commande) {
    fs::create_directories(dossier / "entree");
    fs::create_directories(dossier / "attendu");
    essai::EcrireOctets(dossier / "commande", commande);
    essai::EcrireOctets(dossier / "entree" / "ENQ.DAT", "1\r\n2\r\n");
    essai::EcrireOctets(dossier / "entree" / "ENQ.MOD", "ENQ\r\n");
    essai::EcrireOctets(dossier / "attendu" / "ENQ.TAP", "il y a  2 \r\n");
    essai::EcrireOctets(programme, kProgrammeFactice);
    fs::permissions(programme, fs::perms::owner_all);
  }

  std::string Verdict() const {
    const golden::Cas cas = golden::LireCas(dossier);
    std::string tout;
    for (const std::string& d : golden::Differences(cas, golden::ExecuterCas(cas, programme))) tout += d + "\n";
    return tout;
  }
};

const std::string juste = R"("printf 'il y a  2 \r\n' > ENQ.TAP)";

struct Ligne {
  const char* nom;
  std::string commande;
  const char* attendu;  // part of the verdict; "" when the case must pass
};

class Verdicts : public testing::TestWithParam<Ligne> {};

TEST_P(Verdicts, TellsTheDifference) {
  const std::string verdict = Disposition(GetParam().commande + "\"\n").Verdict();
  if (*GetParam().attendu == '\0') EXPECT_EQ(verdict, "");
  else EXPECT_NE(verdict.find(GetParam().attendu), std::string::npos) << verdict;
}

INSTANTIATE_TEST_SUITE_P(
    Table, Verdicts,
    testing::Values(Ligne{"Right", juste, ""},
                    Ligne{"OtherByte", R"("printf 'il y a  3 \r\n' > ENQ.TAP)", "ENQ.TAP differs at line 1, column 9"},
                    Ligne{"OtherLineEnd", R"("printf 'il y a  2 \n' > ENQ.TAP)", "found:    il·y·a··2·\\n"},
                    Ligne{"Longer", juste + R"(; echo x >> ENQ.TAP)", "expected: <end of file>"},
                    Ligne{"EmptyFile", R"("printf '' > ENQ.TAP)", "found:    <end of file>"},
                    Ligne{"MissingFile", R"("true)", "ENQ.TAP is missing"},
                    Ligne{"ExtraFile", juste + R"(; echo x > temp.$$)", "is not expected"},
                    Ligne{"InputChanged", juste + R"(; echo x > ENQ.DAT)", "ENQ.DAT differs"},
                    Ligne{"InputVanished", juste + R"(; rm ENQ.MOD)", "ENQ.MOD is missing"},
                    Ligne{"VanishesAsTold", "efface: ENQ.MOD\n" + juste + R"(; rm ENQ.MOD)", ""},
                    Ligne{"ToldToVanishButStays", "efface: ENQ.MOD\n" + juste, "ENQ.MOD is not expected"},
                    Ligne{"Status", juste + R"(; exit 1)", "ended with status 1, expected 0"},
                    Ligne{"StatusAsTold", "statut=1 " + juste + R"(; exit 1)", ""},
                    Ligne{"Killed", juste + R"(; kill -9 $$)", "ended with status -9"},
                    Ligne{"SecondRun", juste + "\"\nstatut=2 \"true", "run 2 ended with status 0, expected 2"}),
    [](const auto& ligne) { return std::string(ligne.param.nom); });

TEST(Cas, StandardOutputIsComparedWhenExpected) {
  const Disposition d(juste + "; echo bonjour; echo boite >&2\"\n");
  essai::EcrireOctets(d.dossier / "sortie", "bonjour\n");
  essai::EcrireOctets(d.dossier / "boites", "");
  EXPECT_NE(d.Verdict().find("boites differs"), std::string::npos);
  essai::EcrireOctets(d.dossier / "boites", "boite\n");
  EXPECT_EQ(d.Verdict(), "");
}

TEST(Cas, ACaseThatExpectsNothingIsRefused) {
  const Disposition d("triapl ENQ\n");
  fs::remove(d.dossier / "attendu" / "ENQ.TAP");
  EXPECT_THROW(golden::LireCas(d.dossier), std::runtime_error);
}

TEST(Cas, ArgumentsMayHoldBlanks) {
  const Disposition d("triapl ENQ titre=\"deux mots\" 'sans \"fin\"' \"\"\n");
  const std::vector<std::string> attendu = {"triapl", "ENQ", "titre=deux mots", "sans \"fin\"", ""};
  EXPECT_EQ(golden::LireCas(d.dossier).executions.at(0).arguments, attendu);
}

TEST(Cas, RewritingMakesTheCasePass) {
  const Disposition d("\"echo neuf > ENQ.DAT; echo plus > B.TAP\"\n");
  EXPECT_NE(d.Verdict(), "");
  const golden::Cas cas = golden::LireCas(d.dossier);
  golden::Reecrire(cas, golden::ExecuterCas(cas, d.programme));
  EXPECT_EQ(d.Verdict(), "");
  EXPECT_FALSE(fs::exists(d.dossier / "attendu" / "ENQ.TAP"));
  EXPECT_FALSE(fs::exists(d.dossier / "attendu" / "ENQ.MOD"));
}

}  // namespace
