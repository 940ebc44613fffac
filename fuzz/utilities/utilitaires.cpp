// Any table, survey, triangle or pair of files given to the programs that cut, join, transpose, export, group or
// profile them: each run ends with a report, and what it reads stays as it is. Input: one byte for the program, one of
// options, then the bytes of .MOD, .BRT, .POS, .DAT and .TRG with FF hex between them.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "factor/profil/profilmod.h"
#include "fuzz/support/dossier_memoire.h"
#include "modalities/regroupement/modifburt.h"
#include "tables/triangle/triang.h"
#include "utilities/caracteres.h"
#include "utilities/exportation.h"
#include "utilities/exportcsv/exportcsv.h"
#include "utilities/fusion/fusion.h"
#include "utilities/gendat.h"
#include "utilities/inversion.h"

namespace {

using namespace quelvar;

constexpr std::size_t kLongueurLaPlusGrande = 1 << 14;  // a table may ask for a million individuals

utilities::OptionsFusion Fusion(unsigned choix) {
  utilities::OptionsFusion options;
  options.a = "ENQ.DAT";
  options.b = "ENQ.BRT";
  options.c = "ENQ.RES";
  options.type = static_cast<utilities::TypeFusion>(1 + choix % 3);
  options.verifier = (choix & 4) != 0;
  options.positionA = std::to_string(choix >> 5);
  options.positionB = options.largeur = "1";
  return options;
}

// The name of the report that the run must leave; empty for one that leaves none.
std::string Lancer(const Contexte& contexte, unsigned programme, unsigned choix) {
  switch (programme % 7) {
    case 0: utilities::Inverser(contexte, {(choix & 1) != 0}); return "ENQ.prt";
    case 1: utilities::ExporterCsv(contexte, {(choix & 1) != 0, (choix & 2) != 0, (choix & 4) != 0}); return {};
    case 2:
      utilities::Exporter(
          contexte, {"ENQ.DAT", "ENQ.RES", std::to_string(choix & 15), std::to_string(choix >> 4), (choix & 1) != 0});
      return "ENQ.prt";
    case 3: utilities::Fusionner(contexte, Fusion(choix)); return "ENQ.prt";
    case 4: tables::Triang(contexte, {}); return "ENQ.prt";
    case 5: {
      modalities::OptionsModifBurt options;
      if ((choix & 1) != 0) options.colonnes = {"AGE1", "AGE2"};
      if ((choix & 2) != 0) options.lignes = {"AGE2", "SEX1"};
      modalities::ModifierBurt(contexte, options);
      return "ENR.PRT";
    }
    default: {
      factor::OptionsProfil options;
      options.detail = (choix & 1) != 0;
      options.nonTri = (choix & 2) != 0;
      factor::ProfilMod(contexte, options);
      return "ENQ.PR2";
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  if (taille > kLongueurLaPlusGrande) return 0;
  const fuzz::DossierMemoire& dossier = fuzz::DossierVide();
  fuzz::Entree entree(donnees, taille, 2);
  const fuzz::Contenus lus = dossier.Distribuer(entree, {"ENQ.MOD", "ENQ.BRT", "ENQ.POS", "ENQ.DAT", "ENQ.TRG"});
  const std::string rapport = Lancer(dossier.Contexte(), entree.Option(0), entree.Option(1));
  if (!rapport.empty() && !dossier.Existe(rapport)) std::abort();
  dossier.ExigerIntacts(lus);
  return 0;
}
