#include "text/concordance/concord.h"

#include <gtest/gtest.h>

#include "support/programme.h"
#include "text/lignedemot.h"

using namespace quelvar::text;

namespace quelvar {
namespace {

using essai::Ligne;

class RunConcord : public essai::RunDeProgramme {};

TEST_F(RunConcord, NoFileIsReplacedUnaskedAndNoneOfTheDataSetAtAll) {
  Ecrire("ENQ.DAT", Ligne("1", "a", "a"));
  Ecrire("ENQ.TXT", "1a*\r\n");
  Ecrire("CONC.TXT", "notes");
  bouton_ = Reponse::Non;
  for (const std::string sortie : {"ENQ.DAT", "enq.TXT", "ENQ.EDI", "./ENQ.TXT", "CONC.TXT"}) {
    const auto avant = Fichiers();
    EXPECT_EQ(Concord(contexte_, {.mots = {"a"}, .sortie = sortie}), Fin::Arret) << sortie;
    EXPECT_TRUE(Dit(sortie == "CONC.TXT" ? "*** Le fichier CONC.TXT existe déjà"_w : "est du jeu de données ENQ"_w));
    EXPECT_EQ(Fichiers(), avant);
  }
  EXPECT_EQ(Concord(contexte_, {.mots = {"a"}, .sortie = "ENQ.DAT", .remplacer = true}), Fin::Arret);
  EXPECT_EQ(boites_, std::vector<std::string>{std::string("Le fichier CONC.TXT existe déjà. Le remplacer ?"_w)});
  EXPECT_EQ(Concord(contexte_, {}), Fin::Arret);
  EXPECT_TRUE(Dit("*** Aucun mot n'est donné"_w));
  EXPECT_EQ(Concord(contexte_, {.mots = {"a", "zut"}}), Fin::Normale);
  EXPECT_TRUE(Dit("1 ligne(s) de ENQ.DAT\r\nMot absent : zut\r\n"));
  EXPECT_EQ(Concord(contexte_, {.mots = {"a"}, .sortie = "CONC.TXT", .remplacer = true}), Fin::Normale);
  EXPECT_TRUE(Lire("CONC.TXT").starts_with("Concordance de : a\r\n1 ligne(s)"));
}

}  // namespace
}  // namespace quelvar
