#include "text/preparation/preptext.h"

#include <gtest/gtest.h>

#include "support/programme.h"
#include "text/preparation/octets.h"

using namespace quelvar::text;

namespace quelvar {
namespace {

TEST(TableDe, ByteByByte) {
  const struct {
    OptionsPrepText options;
    std::string_view avant;
    std::string_view apres;
  } cas[] = {
      {{}, "ÀÉÎÕÜÇæñ"_w, "aeiouc\xE6\xF1"},
      {{}, "A-Z[\"'`]\t&*"_w, "a z      &*"},
      {{}, "\x8C\x9C\x80\xAB~", "\x9C\x9C   "},
      {{.accents = false, .ponctuation = false, .majusculesEnMin = true, .minusculesEnMaj = true},
       "Aa~\xE9",
       "AA^\xE9"},
      {{.ponctuation = false, .finsDeLigne = true}, "a&\nb&&\r\n&&&&\n", "a& b&& \n&&&& "},
  };
  for (const auto& [options, avant, apres] : cas) {
    std::string texte(avant);
    TransformerOctets(texte, options);
    EXPECT_EQ(texte, apres);
  }
}

class RunPrepText : public essai::RunDeProgramme {};

TEST_F(RunPrepText, APreparationThatStoppedLeavesItsNameToTheNextOne) {
  std::string nouveau;
  EXPECT_EQ(PrepText(contexte_, {}, nouveau), Fin::Arret);
  EXPECT_TRUE(Existe("ENR.prt"));
  Ecrire("ENQ.TXT", "1Un\r\n");
  EXPECT_EQ(PrepText(contexte_, {}, nouveau), Fin::Normale);
  EXPECT_EQ(nouveau, "ENR");
  EXPECT_EQ(boites_.size(), 0U);
  EXPECT_EQ(PrepText(contexte_, {}, nouveau), Fin::Normale);
  EXPECT_EQ(nouveau, "ENS") << "a preparation that came to its end keeps its name";
}

}  // namespace
}  // namespace quelvar
