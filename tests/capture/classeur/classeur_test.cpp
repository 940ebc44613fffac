#include "capture/classeur/classeur.h"

#include <gtest/gtest.h>

#include <map>

#include "capture/classeur/ods.h"
#include "capture/classeur/valeurs.h"
#include "core/panne/erreur.h"
#include "support/classeurs.h"
#include "support/environnement.h"

namespace quelvar::capture {
namespace {

using classeur::Sens;

class Classeurs : public testing::Test {
 protected:
  Chemin Fichier(const std::string& nom) const { return dossier_.Chemin() / nom; }
  std::string Csv(const std::string& nom, std::string_view feuille = {}) const {
    EcrireFeuilleEnCsv(Fichier(nom), feuille, Fichier("sortie.csv"));
    return LireOctets(Fichier("sortie.csv"));
  }
  // The sentence of the refusal, empty when there is none.
  std::string Refus(const std::string& nom, std::string_view feuille = {}) const {
    try {
      Csv(nom, feuille);
    } catch (const Erreur& erreur) {
      return VersUtf8(erreur.Phrase());
    }
    return {};
  }

  essai::DossierTemporaire dossier_;
};

const std::string kMarque = "\xEF\xBB\xBF";

TEST_F(Classeurs, OdsCellsAsStoredAndInPlace) {
  essai::EcrireOds(
      Fichier("a.ods"),
      "<table:tracked-changes><table:deletion><table:table-row><table:table-cell><text:p>effacé</text:p>"
      "</table:table-cell></table:table-row></table:deletion></table:tracked-changes>"
      "<table:table "
      "table:name=\"Réponses\"><office:forms/><table:table-column/><table:table-header-rows><table:table-row>"
      "<table:table-cell office:value-type=\"string\"><text:p>Sexe</text:p></table:table-cell>"
      "<table:table-cell office:value-type=\"string\"><text:p>Âge; en <text:span>années</text:span></text:p>"
      "<office:annotation><text:p>une note</text:p></office:annotation></table:table-cell>"
      "<table:table-cell><text:p>ligne 1</text:p><text:p>ligne<text:s text:c=\"2\"/>2</text:p></table:table-cell>"
      "</table:table-row></table:table-header-rows>"
      // A number shown rounded, a percentage, a formula, a date, an hour, a boolean, a repeated cell.
      "<table:table-row><table:table-cell office:value-type=\"float\" office:value=\"0.435\"><text:p>0,4</text:p>"
      "</table:table-cell><table:table-cell office:value-type=\"percentage\" office:value=\"0.05\"><text:p>5 %</text:p>"
      "</table:table-cell><table:table-cell table:formula=\"of:=1+1\" office:value-type=\"float\" office:value=\"2\">"
      "<text:p>2</text:p></table:table-cell><table:table-cell office:value-type=\"date\" "
      "office:date-value=\"2024-01-15\"><text:p>15/01/24</text:p></table:table-cell>"
      "<table:table-cell office:value-type=\"time\" office:time-value=\"PT26H05M09S\"/>"
      "<table:table-cell office:value-type=\"boolean\" office:boolean-value=\"true\"><text:p>VRAI</text:p>"
      "</table:table-cell><table:table-cell table:number-columns-repeated=\"2\" office:value-type=\"float\" "
      "office:value=\"7\"/><table:covered-table-cell><text:p>sous la fusion</text:p></table:covered-table-cell>"
      "</table:table-row>"
      // Two empty rows, an empty cell before a text, then all the rest of a sheet.
      "<table:table-row table:number-rows-repeated=\"2\"><table:table-cell table:number-columns-repeated=\"16384\"/>"
      "</table:table-row><table:table-row-group><table:table-row table:number-rows-repeated=\"2\"><table:table-cell/>"
      "<table:table-cell calcext:value-type=\"error\" office:value-type=\"string\" office:string-value=\"\">"
      "<text:p>#N/D</text:p></table:table-cell></table:table-row></table:table-row-group>"
      "<table:table-row table:number-rows-repeated=\"1048570\"><table:table-cell "
      "table:number-columns-repeated=\"16384\"/></table:table-row></table:table>"
      "<table:table table:name=\"2020\"><table:table-row><table:table-cell office:value-type=\"float\" "
      "office:value=\"1\"/></table:table-row></table:table>"
      "<table:table table:name=\"'file:///x.ods'#$A\"/>");
  EXPECT_EQ(EcrireFeuilleEnCsv(Fichier("a.ods"), {}, Fichier("a.csv")).feuilles,
            (std::vector<std::string>{Joindre({"Réponses"_w}), "2020"}));
  EXPECT_EQ(Csv("a.ods"), kMarque +
                              "Sexe;\"Âge; en années\";ligne 1 ligne  2\r\n"
                              "0.435;0.05;2;2024-01-15;26:05:09;VRAI;7;7\r\n"
                              "\r\n\r\n;#N/D;;;;;;\r\n;#N/D;;;;;;\r\n");
  EXPECT_EQ(Csv("a.ods", "2020"), kMarque + "1\r\n") << "a name before a number";
  EXPECT_EQ(Csv("a.ods", "2"), kMarque + "1\r\n");
  EXPECT_EQ(Csv("a.ods", "réPONSES"_w), Csv("a.ods"));
  EXPECT_EQ(Refus("a.ods", "3"),
            "Ce classeur n'a pas de feuille \"3\". Ses feuilles sont : 1 \"Réponses\", 2 \"2020\".");
}

TEST_F(Classeurs, XlsxCellsAsStoredAndInPlace) {
  essai::EcrireXlsx(
      Fichier("a.xlsx"),
      {{"name=\"Notes\" state=\"hidden\"", "<row r=\"1\"><c><v>9</v></c></row>"},
       {"name=\"Enquête\"",
        "<row r=\"2\"><c r=\"A2\" t=\"s\"><v>0</v></c><c r=\"C2\" t=\"s\"><v>1</v></c><c r=\"AA2\" t=\"inlineStr\">"
        "<is><t> b</t></is></c></row>"
        "<row><c><v>35.100000000000001</v></c><c s=\"4\"><v>0.05</v></c><c s=\"1\"><v>45306</v></c><c "
        "s=\"2\"><v>0.5</v></c>"
        "<c s=\"3\"><v>45306.4375</v></c><c t=\"b\"><v>1</v></c><c t=\"str\"><f>A1&amp;\"x\"</f><v>a\"x</v></c>"
        "<c t=\"e\"><v>#N/A</v></c><c><v>1E-3</v></c><c s=\"1\"/></row>"}},
      "<si><t>Sexe</t></si><si><r><t>Quel</t></r><r><t xml:space=\"preserve\"> âge_x000D_?</t></r>"
      "<rPh><t>KANA</t></rPh></si>");
  EXPECT_EQ(Csv("a.xlsx"),
            kMarque +
                "\r\nSexe;;Quel âge ?;;;;;;;;;;;;;;;;;;;;;;;;\" b\"\r\n"
                "35.1;0.05;2024-01-15;12:00:00;2024-01-15 10:30:00;VRAI;\"a\"\"x\";#N/A;0.001;;;;;;;;;;;;;;;;;;\r\n");
  EXPECT_EQ(Csv("a.xlsx", "1"), kMarque + "9\r\n") << "a hidden sheet when it is asked for";
  essai::EcrireXlsx(Fichier("b.xlsx"),
                    {{"name=\"F\"", "<row><c s=\"1\"><v>0</v></c><c s=\"1\"><v>43844</v></c></row>"}}, {},
                    "<workbookPr date1904=\"1\"/>");
  EXPECT_EQ(Csv("b.xlsx"), kMarque + "1904-01-01;2024-01-15\r\n");
}

TEST_F(Classeurs, AnEmptySheetIsRefusedWithTheNamesOfTheOthers) {
  const std::string tableau = "<row><c><v>1</v></c></row>";
  essai::EcrireXlsx(Fichier("a.xlsx"), {{"name=\"Accueil\"", "<row/>"}, {"name=\"Notes\"", tableau}});
  essai::EcrireOds(Fichier("a.ods"),
                   "<table:table table:name=\"Accueil\"/><table:table table:name=\"Notes\"><table:table-row>"
                   "<table:table-cell><text:p>x</text:p></table:table-cell></table:table-row></table:table>");
  for (const std::string nom : {"a.xlsx", "a.ods"}) {
    try {
      EcrireFeuilleEnCsv(Fichier(nom), "Accueil", Fichier("a.csv"));
      ADD_FAILURE() << nom;
    } catch (const Erreur& erreur) {
      EXPECT_TRUE(TexteErreur(erreur).starts_with(
          Joindre({"La feuille \"Accueil\" de ", nom, " est vide. Ses feuilles sont : 1 \"Accueil\", 2 \"Notes\". "})))
          << TexteErreur(erreur);
    }
    EXPECT_NO_THROW(EcrireFeuilleEnCsv(Fichier(nom), "2", Fichier("a.csv"))) << nom;
    EXPECT_EQ(EcrireFeuilleEnCsv(Fichier(nom), {}, Fichier("a.csv")).Nom(), "Notes") << "one row is better than none";
  }
}

TEST_F(Classeurs, UnaskedTheFirstSheetWithATableIsRead) {
  const auto rangee = [](const std::string& valeur) { return "<row><c><v>" + valeur + "</v></c></row>"; };
  const std::string titres = rangee("5");
  const std::string tableau = rangee("6") + "<row/>" + rangee("7");
  struct Cas {
    std::vector<essai::PartieDeClasseur> feuilles;
    std::size_t lue;
    std::vector<std::size_t> sansTable;
  };
  const std::vector<Cas> cas = {
      {{{"name=\"A\"", tableau}, {"name=\"B\"", tableau}}, 0, {}},
      {{{"name=\"A\"", "<row/>"}, {"name=\"B\"", titres}, {"name=\"C\"", tableau}}, 2, {0, 1}},
      {{{"name=\"A\" state=\"hidden\"", tableau}, {"name=\"B\"", titres}, {"name=\"C\"", tableau}}, 2, {1}},
      {{{"name=\"A\"", titres}, {"name=\"B\" state=\"hidden\"", tableau}}, 0, {}},
      {{{"name=\"A\" state=\"hidden\"", tableau}}, 0, {}},
  };
  for (std::size_t i = 0; i < cas.size(); ++i) {
    essai::EcrireXlsx(Fichier("a.xlsx"), cas[i].feuilles);
    const FeuilleLue lue = EcrireFeuilleEnCsv(Fichier("a.xlsx"), {}, Fichier("a.csv"));
    EXPECT_EQ(lue.rang, cas[i].lue) << i;
    EXPECT_EQ(lue.sansTable, cas[i].sansTable) << i;
  }
}

TEST_F(Classeurs, RefusalsTellWhy) {
  const std::string feuille = "<table:table table:name=\"F\">";
  const auto ods = [&](const std::string& nom, const std::string& lignes) {
    essai::EcrireOds(Fichier(nom), feuille + lignes + "</table:table>");
  };
  essai::EcrireOctets(Fichier("texte.ods"), "a;b\r\n1;2\r\n");
  essai::EcrireOctets(Fichier("vide.xlsx"), "");
  essai::EcrireOctets(Fichier("ancien.xlsx"), "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1");
  essai::EcrireClasseur(Fichier("autre.ods"), {{"lettre.txt", "bonjour"}});
  essai::EcrireOds(Fichier("sans.ods"), "");
  ods("coupe.ods", "<table:table-row></table:table>");
  ods("large.ods",
      "<table:table-row><table:table-cell table:number-columns-repeated=\"16384\"/><table:table-cell>"
      "<text:p>x</text:p></table:table-cell></table:table-row>");
  ods("longue.ods",
      "<table:table-row table:number-rows-repeated=\"1048576\"><table:table-cell/></table:table-row>"
      "<table:table-row><table:table-cell><text:p>x</text:p></table:table-cell></table:table-row>");
  ods("cellule.ods", "<table:table-row><table:table-cell><text:p>" + std::string((1 << 20) + 1, 'x') +
                         "</text:p></table:table-cell></table:table-row>");
  essai::EcrireClasseur(Fichier("entites.ods"), {{"content.xml", "<!DOCTYPE a [<!ENTITY b \"bbbb\">]><a>&b;&b;</a>"}});
  essai::EcrireClasseur(Fichier("secret.ods"),
                        {{"META-INF/manifest.xml", "<manifest:encryption-data/>"}, {"content.xml", "x"}});
  essai::EcrireXlsx(Fichier("ordre.xlsx"),
                    {{"name=\"F\"", "<row r=\"2\"/><row r=\"2\"><c><v>1</v></c></row><row r=\"2\"/>"}});
  essai::EcrireXlsx(Fichier("renvoi.xlsx"), {{"name=\"F\"", "<row><c t=\"s\"><v>99</v></c></row>"}});
  ods("entier.ods", "<table:table-row><table:table-cell><text:p>x</text:p></table:table-cell></table:table-row>");
  const std::string entier = LireOctets(Fichier("entier.ods"));
  essai::EcrireOctets(Fichier("tronque.ods"), entier.substr(0, entier.size() / 2));
  std::string change = entier;
  const std::size_t place = entier.find("content.xml") + 11 + 40;
  change[place] = static_cast<char>(change[place] ^ 0x55);
  essai::EcrireOctets(Fichier("abime.ods"), change);

  const std::map<std::string, std::string> attendus = {
      {"texte.ods", "ce n'est pas un fichier .ods ou .xlsx"},
      {"vide.xlsx", "ce n'est pas un fichier .ods ou .xlsx"},
      {"ancien.xlsx", "d'avant 2007"},
      {"autre.ods", "ce n'est pas un fichier .ods ou .xlsx"},
      {"sans.ods", "il n'a pas de feuille de calcul"},
      {"coupe.ods", "le fichier est abîmé (dans content.xml)"},
      {"large.ods", "plus de 16 384 colonnes"},
      {"longue.ods", "plus de 1 048 576 lignes"},
      {"cellule.ods", "plus de un Mio dans une cellule"},
      {"entites.ods", "une déclaration de type de document"},
      {"secret.ods", "protégé par un mot de passe"},
      {"ordre.xlsx", "les lignes de la feuille ne se suivent pas"},
      {"renvoi.xlsx",
       "une cellule y renvoie à un texte qui n'existe pas. Enregistrez "
       "la feuille en CSV depuis le tableur et importez ce fichier."},
      {"tronque.ods", "le fichier est abîmé"},
      {"abime.ods", "le fichier est abîmé"}};
  for (const auto& [nom, raison] : attendus)
    EXPECT_NE(Refus(nom).find(raison), std::string::npos) << nom << " : " << Refus(nom);
}

// Before its rows have filled a disk.
TEST_F(Classeurs, CellsThatRepeatAreCounted) {
  essai::EcrireOds(Fichier("bombe.ods"),
                   "<table:table table:name=\"F\"><table:table-row table:number-rows-repeated=\"1048576\">"
                   "<table:table-cell office:value-type=\"float\" office:value=\"1\" "
                   "table:number-columns-repeated=\"16384\"/></table:table-row></table:table>");
  const classeur::Archive archive(Fichier("bombe.ods"));
  const classeur::RecevoirLigne rien = [](auto) {};
  classeur::Rangees rangees(rien);
  try {
    LireOds(archive, 0, rangees);
    ADD_FAILURE();
  } catch (const Erreur& erreur) {
    EXPECT_NE(erreur.Phrase().find("plus de 250 millions de cellules remplies"), std::string::npos);
  }
}

TEST(ValeursDeClasseur, NumbersDatesAndFormats) {
  using namespace classeur;
  const std::map<std::string, std::string> nombres = {{"1", "1"},
                                                      {"0.1", "0.1"},
                                                      {"0.30000000000000004", "0.3"},
                                                      {"12345678901234567", "12345678901234567"},
                                                      {"1E2", "100"},
                                                      {"-1.5E-05", "-0.000015"},
                                                      {"1.25e+3", "1250"},
                                                      {"1e21", "1000000000000000000000"},
                                                      {"-0.0", "0"},
                                                      {"texte", "texte"},
                                                      {"1,5", "1,5"},
                                                      {"", ""}};
  for (const auto& [lu, ecrit] : nombres) EXPECT_EQ(TexteDuNombre(lu), ecrit) << lu;

  const std::map<std::string, Sens> formats = {
      {"General", Sens::Nombre},        {"0.00", Sens::Nombre},
      {"0.00E+00", Sens::Nombre},       {"dd/mm/yyyy", Sens::Date},
      {"[$-40C]d mmm", Sens::Date},     {"mm:ss", Sens::Heure},
      {"[h]:mm", Sens::Heure},          {"#,##0\" ans du mois\"", Sens::Nombre},
      {"[Red]0;[Blue]d", Sens::Nombre}, {"0\\d", Sens::Nombre},
      {"yyyy-mm-dd hh:mm", Sens::Date}, {"mmmm", Sens::Date}};
  for (const auto& [code, sens] : formats) EXPECT_EQ(SensDuFormat(code), sens) << code;

  // The 1900 calendar has a 29th of February that never was: day 59 is the 28th, day 61 the first of March.
  const struct {
    std::string_view jours;
    Sens sens;
    std::string_view date;
  } dates[] = {{"1", Sens::Date, "1900-01-01"},
               {"59", Sens::Date, "1900-02-28"},
               {"60", Sens::Date, "1900-02-29"},
               {"61", Sens::Date, "1900-03-01"},
               {"45292", Sens::Date, "2024-01-01"},
               {"45292.999999999", Sens::Date, "2024-01-02"},
               {"0.25", Sens::Date, "06:00:00"},
               {"1.5", Sens::Heure, "36:00:00"},
               {"-1", Sens::Date, "-1"},
               {"2958465", Sens::Date, "9999-12-31"},
               {"2958466", Sens::Date, "2958466"},
               {"abc", Sens::Date, "abc"}};
  for (const auto& [jours, sens, date] : dates) EXPECT_EQ(TexteDeLaDate(jours, sens, false), date) << jours;
  EXPECT_EQ(TexteDeLaDuree("PT0H05M00.5S"), "00:05:00");
  EXPECT_EQ(TexteDeLaDuree("P1D"), "P1D");
  EXPECT_EQ(TexteDuJour("2024-01-15T00:00:00.000"), "2024-01-15");
  EXPECT_EQ(TexteDuJour("2024-01-15T00:01:00"), "2024-01-15 00:01:00");
}

}  // namespace
}  // namespace quelvar::capture
