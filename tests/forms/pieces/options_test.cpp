// What a form shows before it is touched is the defaults of its program, and each of its controls says what the table
// of the program has for it.
#include "forms/pieces/options.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QLineEdit>

#include "capture/import_options.h"
#include "factor/profil/profilmod_options.h"
#include "forms/pilote.h"
#include "modalities/creation/posmod_options.h"
#include "regression/options.h"
#include "sorts/recodage/recodage_options.h"
#include "sorts/triapl/triapl_options.h"
#include "tables/ecapem_options.h"
#include "text/decoupage/saisiemot_options.h"
#include "text/preparation/preptext_options.h"
#include "text/tableau/tabmot_options.h"
#include "utilities/options.h"

using namespace quelvar::forms;

namespace {

using essai::Bureau;
using quelvar::Description;
using quelvar::LigneDOptions;
using quelvar::Option;

// Ticks what can be ticked, one after the other; returns how many controls spoke.
template <class O>
int Cocher(const QWidget& forme, const Description<O>& programme) {
  int dits = 0;
  for (const Option& option : programme.Table())
    for (const quelvar::Controle& controle : option.controles) {
      auto* bouton = forme.findChild<QAbstractButton*>(QString::fromStdString(quelvar::VersUtf8(controle.nom)));
      if (bouton == nullptr || controle.valeur.empty() || !bouton->isVisible() || !bouton->isEnabled()) continue;
      const std::string defaut = programme.ValeurEcrite(O{}, option.nom);
      const bool avant = bouton->isChecked();
      bouton->setChecked(true);
      EXPECT_EQ(ValeurMontree(forme, option, defaut), controle.valeur) << controle.nom;
      if (!bouton->autoExclusive()) bouton->setChecked(avant);
      ++dits;
    }
  return dits;
}

template <class O>
int Verifier(const QWidget& forme, const Description<O>& programme) {
  EXPECT_EQ(programme.Ecrite(OptionsDesControles(forme, programme)), LigneDOptions{}) << programme.Nom();
  return Cocher(forme, programme);
}

struct Cas {
  const char* entree;
  int (*verifier)(const QWidget& forme);
  int controles;  // that the table has for what is seen at level 2
};

const Cas kCas[] = {
    {"mnuTriapl", [](const QWidget& f) { return Verifier(f, quelvar::sorts::DescriptionTriapl()); }, 6},
    {"mnuOutils", [](const QWidget& f) { return Verifier(f, quelvar::sorts::DescriptionRecodage()); }, 2},
    {"mnuEcapem", [](const QWidget& f) { return Verifier(f, quelvar::tables::DescriptionEcapem()); }, 9},
    {"mnuPosmod", [](const QWidget& f) { return Verifier(f, quelvar::modalities::DescriptionPosmod()); }, 4},
    {"mnuProfil", [](const QWidget& f) { return Verifier(f, quelvar::factor::DescriptionProfilMod()); }, 2},
    {"mnuVarInt", [](const QWidget& f) { return Verifier(f, quelvar::regression::DescriptionVarint()); }, 2},
    {"mnuPrepText", [](const QWidget& f) { return Verifier(f, quelvar::text::DescriptionPrepText()); }, 5},
    {"mnuImpMot", [](const QWidget& f) { return Verifier(f, quelvar::text::DescriptionSaisieMot()); }, 6},
    {"mnuImport", [](const QWidget& f) { return Verifier(f, quelvar::capture::DescriptionImportCsv()); }, 1},
    {"mnexportCSV", [](const QWidget& f) { return Verifier(f, quelvar::utilities::DescriptionExportCsv()); }, 7},
    {"mnuUtil", [](const QWidget& f) { return Verifier(f, quelvar::utilities::DescriptionTri()); }, 3},
    {"mnuUtil",
     [](const QWidget& f) {
       essai::Cliquer(f, "OptExport");
       return Verifier(f, quelvar::utilities::DescriptionExporter());
     },
     2},
    {"mnuUtil",  // the type has no default: none of its buttons is ticked
     [](const QWidget& f) {
       essai::Cliquer(f, "OptFusion");
       return Verifier(f, quelvar::utilities::DescriptionFusionner());
     },
     4},
    {"mnuUtil",
     [](const QWidget& f) {
       essai::Cliquer(f, {"OptEcapem", "OptNoms"});
       return Verifier(f, quelvar::tables::DescriptionEcapem());
     },
     3},
};

struct BureauEnq : Bureau {
  BureauEnq() : Bureau(true) {
    Ecrire("qvr2.ini", "ENQ\r\n 2 \r\n");
    Ecrire("ENQ.POS", "ENQ\r\n 4 \r\nSEX   1 2 $Sexe$\r\nLEC   2 3 $Lecture$\r\n");
    Ecrire("ENQ.DAT", "11\r\n12\r\n21\r\n23\r\n");
    Ecrire("ENQ.MOD", "ENQ\r\n BRT=5 FMT=1 \r\nSEX1\r\nSEX2\r\nLEC1\r\nLEC2\r\nLEC3\r\n");
    Ecrire("ENQ.BRT", "SEX120110\r\nSEX202101\r\nLEC111200\r\nLEC210010\r\nLEC301001\r\n");
    Ecrire("ENQ.TXT", "1 un mot\r\n2 deux mots\r\n");
    Ouvrir();
  }
};

TEST(OptionsDesControles, UnFormulaireIntactDitLesDefautsEtChaqueControleSaValeur) {
  for (const Cas& cas : kCas) {
    SCOPED_TRACE(cas.entree);
    BureauEnq bureau;
    EXPECT_GE(cas.verifier(bureau.Demander<Forme>(cas.entree)), cas.controles);
  }
}

// A number is kept within the bounds of its option, a fraction is cut, and a control that is hidden says nothing.
TEST(OptionsDesControles, LesNombresRestentDansLeursBornes) {
  BureauEnq bureau;
  auto& forme = bureau.Demander<Forme>("mnuImpMot");
  const auto& programme = quelvar::text::DescriptionSaisieMot();
  auto& colonne = Bureau::Dans<QLineEdit>(forme, "TbPos");
  colonne.setMaxLength(20);
  const std::pair<const char*, int> cas[] = {
      {"12.9", 12}, {"", 0}, {"-3", 0}, {"x", 0}, {"99999999999", programme.De("position").maximum}};
  for (const auto& [tape, lu] : cas) {
    colonne.setText(tape);
    EXPECT_EQ(OptionsDesControles(forme, programme).position, lu) << tape;
  }
  Bureau::Dans<QAbstractButton>(forme, "OpStimFinMotN").setChecked(true);
  EXPECT_EQ(OptionsDesControles(forme, programme).mode, quelvar::text::ModeStimulus::Aucun) << "behind the choice";
  for (const char* pas : {"OpStimulus", "OpFinMot"}) Bureau::Dans<QAbstractButton>(forme, pas).setChecked(true);
  EXPECT_EQ(OptionsDesControles(forme, programme).mode, quelvar::text::ModeStimulus::FinDeMotSupprimee);
}

}  // namespace
