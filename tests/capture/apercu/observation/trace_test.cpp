#include "capture/apercu/observation/trace.h"

#include <gtest/gtest.h>

#include <random>

#include "capture/apercu/choix/reconnaissance.h"
#include "capture/apercu/sorties/ecriture.h"
#include "support/programme.h"

using namespace quelvar::capture;

namespace quelvar {
namespace {

class RunTrace : public essai::RunDeProgramme {};

// What the first look keeps of the cells gives the bytes and the counts that a second look at the source gives.
TEST_F(RunTrace, TheTraceOfTheCellsStandsForTheSource) {
  std::mt19937 hasard(23);
  const std::vector<std::string> textes = {"Femme", "Homme", "\" dit; oui \"", "",
                                           "NSP",   "nr",    " Homme",         "Tout \xE0 fait"};
  const std::vector<std::string> listes = {"a, b", "b", "", "a, c, b"};
  for (const bool titres : {true, false}) {
    std::string octets = titres ? "sexe;code;large;liste;age\n" : "";
    for (int i = 0; i < 20000; ++i) {
      octets += textes[hasard() % (i % 50 == 0 ? 8 : 5)] + ";" +
                (i % 31 == 0 ? "'07'" : std::to_string(hasard() % 130)) + ";";
      octets += std::to_string(1000 + hasard() % 300) + ";" + listes[hasard() % 4];
      octets += (i % 7 == 6 ? "" : ";" + std::to_string(15 + hasard() % 60)) + "\n";
      if (i % 999 == 0) octets += ";;;;\n\n";
    }
    Ecrire("source.csv", octets);
    Ecrire("c.imc", titres ? "large=codes;LAR\nage=classes;AGE;bornes=30|50\n" : "");
    OptionsImport options;
    options.fichier = "source.csv";
    options.fichierChoix = "c.imc";
    options.lecture.titres = titres;
    const SourceDeTable source(dossier_.Chemin() / "source.csv", {}, dossier_.Chemin());
    TraceDeCellules trace(dossier_.Chemin() / "cellules");
    Reconnaissance table = Reconnaitre(contexte_, source, options, &trace);
    if (!titres) table.choix[2].genre = Genre::Codes;
    const PlanDImport plan = DresserPlan(table.choix, table.faits, source.Texte(), table.lecture);
    Bilan deLaSource;
    std::optional<Bilan> deLaTrace;
    {
      Ecrivain premier(dossier_.Chemin() / "1.dat");
      Ecrivain second(dossier_.Chemin() / "2.dat");
      deLaSource =
          EcrireTable(source.Texte(), table.lecture, plan, table.faits.individus, {&premier, nullptr, nullptr}, [] {});
      deLaTrace = EcrireSelonTrace(trace, plan, table.faits.individus, second, [] {});
      premier.Fermer();
      second.Fermer();
    }
    ASSERT_TRUE(deLaTrace) << titres << " " << deLaSource.refus;
    EXPECT_EQ(Lire("2.dat"), Lire("1.dat"));
    EXPECT_EQ(deLaTrace->effectifs, deLaSource.effectifs);
    EXPECT_EQ(deLaTrace->individus, deLaSource.individus);
    EXPECT_EQ(deLaTrace->premieres, deLaSource.premieres);
    EXPECT_FALSE(Existe("cellules"));
  }
}

}  // namespace
}  // namespace quelvar
