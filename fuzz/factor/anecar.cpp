// Any table, with any options: the run ends with a report, its coordinates have a line for each element, and the tree
// that follows can be cut. Then any tree file: the cut ends with a report and leaves the data as they were. Input: two
// bytes of options, the bytes of the .MOD, FF hex, those of the .BRT, FF hex, those of the .CAH.
#include "factor/analyse/anecar.h"

#include <cstdint>
#include <cstdlib>

#include "factor/coupe/coupe.h"
#include "fuzz/support/dossier_memoire.h"

namespace {

constexpr const char* kDonnees = "1\r\n2\r\n1\r\n";
constexpr const char* kQuestions = "ENQ\r\n 3 \r\nAAA   1 2\r\n";

quelvar::factor::OptionsAnecar OptionsDe(unsigned choix, int facteurs) {
  quelvar::factor::OptionsAnecar options;
  options.type = (choix & 1) != 0 ? quelvar::factor::TypeAnalyse::Acp : quelvar::factor::TypeAnalyse::Afc;
  options.facteurs = facteurs % 7;
  if ((choix & 2) != 0) options.edition = quelvar::factor::EditionAnecar::Triee;
  if ((choix & 4) != 0) options.edition = quelvar::factor::EditionAnecar::Etendue;
  options.imprimerLignes = (choix & 8) != 0;
  options.codageLogique = (choix & 16) != 0;
  if ((choix & 32) != 0) {
    options.classification.emplace();
    options.classification->methode =
        (choix & 64) != 0 ? quelvar::factor::MethodeWard::Carres : quelvar::factor::MethodeWard::Distances;
    options.classification->individus = (choix & 128) != 0;
  }
  return options;
}

void Couper(const fuzz::DossierMemoire& dossier, int niveau) {
  quelvar::factor::WardCoupe(dossier.Contexte(), {.niveau = niveau});
  if (!dossier.Existe("ENQ.PRT")) std::abort();
  dossier.ExigerIntacts({{"ENQ.DAT", kDonnees}, {"ENQ.POS", kQuestions}});
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  const fuzz::DossierMemoire& dossier = fuzz::DossierVide();
  fuzz::Entree entree(donnees, taille, 2);
  const auto facteurs = static_cast<int>(entree.Option(1));
  dossier.Ecrire("ENQ.DAT", kDonnees);
  dossier.Ecrire("ENQ.POS", kQuestions);
  dossier.Distribuer(entree, {"ENQ.MOD", "ENQ.BRT"});
  dossier.Ecrire("ENQ.CDG", "");

  const quelvar::factor::OptionsAnecar options = OptionsDe(entree.Option(0), facteurs);
  const quelvar::Fin fin = quelvar::factor::Anecar(dossier.Contexte(), options);
  const bool rapport = dossier.Existe("ENQ.AFC") || dossier.Existe("ENQ.ACP");
  if (!dossier.Existe("ENQ.ANA") || (fin == quelvar::Fin::Normale && !rapport)) std::abort();
  if (fin == quelvar::Fin::Normale && options.classification) Couper(dossier, facteurs);
  dossier.Ecrire("ENQ.CAH", entree.Suivant());
  Couper(dossier, facteurs);
  return 0;
}
