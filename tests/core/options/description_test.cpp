#include "core/options/description.h"

#include <gtest/gtest.h>

namespace quelvar {
namespace {

struct OptionsEssai {
  bool drapeau = false;
  bool oppose = true;
  int nombre = 7;
  std::optional<int> plafond = {};
  double limite = 100;
  std::string texte = {};
  std::vector<std::pair<std::string, std::string>> noms = {};
  int lancements = 1;

  bool operator==(const OptionsEssai&) const = default;
};

// `drapeau` takes `oppose` with it, unless that is asked for.
Description<OptionsEssai> Essai() {
  using O = OptionsEssai;
  Description<O> description("essai", "essai", [](const Contexte&, const O&) { return Fin::Normale; });
  description
      .Libre(
          "drapeau", "oui|non", "un drapeau",
          [](O& options, const std::string& valeur) {
            options.drapeau = LireOuiNon("drapeau", valeur);
            if (options.drapeau) options.oppose = false;
          },
          [](const O& options) { return std::vector<std::string>{options.drapeau ? "oui" : "non"}; })
      .OuiNon("oppose", &O::oppose, "un autre")
      .MontreLeContraire("CaseSans")
      .Entier("nombre", &O::nombre, -5, 50, "un nombre")
      .Montre("CaseNombre")
      .Alias("aucun", {{"oui", "0"}, {"non", ""}})
      .Entier("plafond", &O::plafond, 0, 9, "un plafond")
      .Defaut("aucun")
      .Reel("limite", &O::limite, "une limite")
      .Texte("texte", &O::texte, "TEXTE", "un texte")
      .Couples("nom", &O::noms, "NOM=TEXTE", "un nom");
  return description;
}

OptionsEssai Lues(const LigneDOptions& ligne) { return Essai().Lire(ligne); }

TEST(Options, NamesKeepTheSignsThatPartThem) {
  for (const std::vector<std::string>& noms : {std::vector<std::string>{},
                                               {""},
                                               {"SEX", "AGE"},
                                               {"S,X"},
                                               {",", "\\", "\\,", "A\\B", "=", "A\\="},
                                               {"A", "", "B"}})
    EXPECT_EQ(NomsSepares(NomsJoints(noms)), noms) << NomsJoints(noms);
  EXPECT_EQ(NomsSepares(" A\\B , C\\"), (std::vector<std::string>{"A\\B", "C\\"})) << "as it is typed";
  EXPECT_EQ(NomsSepares("A=B"), std::vector<std::string>{"A=B"}) << "no sign of a list";

  for (const std::string nom : {"", "A", "=", "A=B", "\\", "A\\", "\\=", "A,B", " A "})
    for (const std::string texte : {"", "a=b", "\\=\\", "l'un, l'autre"})
      EXPECT_EQ(LireCouple("nom", EcrireCouple(nom, texte)), std::pair(nom, texte)) << EcrireCouple(nom, texte);
  EXPECT_EQ(LireCouple("nom", "A=B=C"), (std::pair<std::string, std::string>("A", "B=C"))) << "as it is typed";
  EXPECT_EQ(NomEtTexte("nom", "A\\=\\\\B=x"), (std::pair<std::string, std::string>("A=\\B", "x"))) << "four signs";
  EXPECT_THROW(NomEtTexte("nom", "A\\=x"), UsageIncorrect);
}

TEST(Description, OptionsAreSetWhateverTheirOrderAndTheirName) {
  struct Cas {
    LigneDOptions ligne;
    OptionsEssai attendues;
  };
  const std::vector<Cas> cas = {
      {{}, {}},
      {{{"nombre", "-3"}, {"texte", "a b"}}, {.nombre = -3, .texte = "a b"}},
      {{{"casenombre", "9"}, {"te", "abrege"}}, {.nombre = 9, .texte = "abrege"}},
      {{{"casesans", "OUI"}}, {.oppose = false}},
      {{{"auc", "oui"}}, {.nombre = 0}},
      {{{"aucun", "oui"}, {"plafond", "0"}, {"limite", "0.1"}}, {.nombre = 0, .plafond = 0, .limite = 0.1}},
      {{{"aucun", "non"}, {"nombre", "4"}, {"nombre", "4"}}, {.nombre = 4}},
      {{{"nom", "SEX=Sexe"}, {"nom", "AGE="}}, {.noms = {{"SEX", "Sexe"}, {"AGE", ""}}}},
      // One value in two spellings.
      {{{"drapeau", "OUI"}, {"drapeau", "oui"}}, {.drapeau = true, .oppose = false}},
      {{{"nombre", "05"}, {"nombre", "5"}, {"limite", "1"}, {"limite", "1.0"}}, {.nombre = 5, .limite = 1}},
      // What one option takes with it gives way to what is asked for.
      {{{"drapeau", "oui"}}, {.drapeau = true, .oppose = false}},
      {{{"drapeau", "oui"}, {"oppose", "oui"}}, {.drapeau = true}},
      {{{"oppose", "oui"}, {"drapeau", "oui"}}, {.drapeau = true}},
  };
  for (const Cas& un : cas) {
    EXPECT_EQ(Lues(un.ligne), un.attendues);
    EXPECT_EQ(Lues(Essai().Ecrite(un.attendues)), un.attendues);
  }
}

TEST(Description, OnlyWhatDiffersIsWritten) {
  EXPECT_EQ(Essai().Ecrite({}), LigneDOptions());
  EXPECT_EQ(Essai().Ecrite({.drapeau = true, .oppose = false}), (LigneDOptions{{"drapeau", "oui"}}));
  EXPECT_EQ(Essai().Ecrite({.drapeau = true}), (LigneDOptions{{"drapeau", "oui"}, {"oppose", "oui"}}));
  EXPECT_EQ(CommandeEquivalente(Essai(), "ENQ", 1, {}), "quelvar-batch essai ENQ");
  EXPECT_EQ(CommandeEquivalente(Essai(), "MON ENQ", 2, {.texte = "l'an*", .noms = {{"A", "b"}}}),
            "quelvar-batch --niveau 2 essai 'MON ENQ' 'texte=l'\\''an*' nom=A=b");
}

TEST(Description, WhatIsNotTakenIsRefusedWithItsReason) {
  const std::vector<std::pair<LigneDOptions, std::string_view>> cas = {
      {{{"drapeau", "peut-etre"}}, "l'option drapeau attend oui|non et non \"peut-etre\""},
      {{{"oppose", "?"}}, "l'option oppose attend oui|non et non \"?\""},
      {{{"casesans", "?"}}, "l'option casesans attend oui|non et non \"?\""},
      {{{"nombre", "51"}}, "l'option nombre attend un nombre entier (-5..50) et non \"51\""},
      {{{"nombre", ""}}, "l'option nombre attend un nombre entier (-5..50) et non \"\""},
      {{{"nombre", "-"}}, "l'option nombre attend un nombre entier (-5..50) et non \"-\""},
      {{{"nombre", "3x"}}, "l'option nombre attend un nombre entier (-5..50) et non \"3x\""},
      {{{"limite", "1,5"}}, "l'option limite attend un nombre et non \"1,5\""},
      {{{"nom", "SEXES=Sexe"}}, "l'option nom attend NOM=TEXTE et non \"SEXES=Sexe\""},
      {{{"nombre", "1"}, {"aucun", "oui"}}, "l'option nombre est donnée deux fois : \"1\" et \"0\""_w},
      {{{"texte", "oui"}, {"texte", "OUI"}}, "l'option texte est donnée deux fois : \"oui\" et \"OUI\""_w},
      {{{"nom", "SEX=a"}, {"nom", "AGE="}, {"nom", " SEX=b"}},
       "l'option nom est donnée deux fois : \"SEX=a\" et \" SEX=b\""_w},
      {{{"n", "1"}}, "option ambigue : n (voir : quelvar-batch essai --aide)"},
      {{{"autre", "1"}}, "option inconnue : autre (voir : quelvar-batch essai --aide)"},
  };
  for (const auto& [ligne, phrase] : cas) {
    try {
      Lues(ligne);
      ADD_FAILURE() << ligne.front().first << "=" << ligne.front().second;
    } catch (const UsageIncorrect& refus) {
      EXPECT_EQ(std::string_view(refus.what()), phrase);
    }
  }
}

// A form goes by the names of its controls.
TEST(Description, AControlShowsItsOption) {
  const Description<OptionsEssai> description = Essai();
  const OptionsEssai options = description.Lire({{"casesans", "oui"}, {"casenombre", "12"}});
  EXPECT_EQ(options, (OptionsEssai{.oppose = false, .nombre = 12}));
  EXPECT_EQ(description.ValeurEcrite(options, "nombre"), "12");
  EXPECT_EQ(description.ValeurEcrite(options, "plafond"), "");
  EXPECT_EQ(description.De("nombre").maximum, 50);
  EXPECT_EQ(description.De("nombre").controles.front().nom, "CaseNombre");
  EXPECT_EQ(description.De("oppose").controles.front().valeur, "non");
}

}  // namespace
}  // namespace quelvar
