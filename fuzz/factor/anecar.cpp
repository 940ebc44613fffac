// Any table, with any options: the run ends with a report, its coordinates have a line for each element, and the tree
// that follows can be cut. Then any tree file: the cut ends with a report and leaves the data as they were. Input: two
// bytes of options, the bytes of the .MOD, FF hex, those of the .BRT, FF hex, those of the .CAH.
#include "factor/analyse/anecar.h"

#include <cstdint>
#include <cstdlib>

#include "factor/classement/coupe.h"
#include "fuzz/support/dossier_memoire.h"

namespace {

constexpr std::string_view kDonnees = "1\r\n2\r\n1\r\n";
constexpr std::string_view kQuestions = "ENQ\r\n 3 \r\nAAA   1 2\r\n";

quelvar::factor::OptionsAnecar OptionsDe(unsigned choix, unsigned facteurs) {
  quelvar::factor::OptionsAnecar options;
  options.type = (choix & 1) != 0 ? quelvar::factor::TypeAnalyse::Acp : quelvar::factor::TypeAnalyse::Afc;
  options.facteurs = static_cast<int>(facteurs % 7);
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

void Couper(const fuzz::DossierMemoire& dossier, quelvar::Dialogue& dialogue, int niveau) {
  quelvar::factor::WardCoupe(dossier.Contexte(dialogue), {.niveau = niveau});
  if (!dossier.Existe("ENQ.PRT") || dossier.Lire("ENQ.DAT") != kDonnees || dossier.Lire("ENQ.POS") != kQuestions)
    std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  if (taille < 2) return 0;
  static const fuzz::DossierMemoire dossier;
  dossier.Vider();
  dossier.Ecrire("ENQ.DAT", kDonnees);
  dossier.Ecrire("ENQ.POS", kQuestions);
  std::string_view reste(reinterpret_cast<const char*>(donnees) + 2, taille - 2);
  const auto morceau = [&] {
    const std::size_t coupe = reste.find('\xFF');
    const std::string_view debut = reste.substr(0, coupe);
    reste.remove_prefix(coupe == reste.npos ? reste.size() : coupe + 1);
    return debut;
  };
  dossier.Ecrire("ENQ.MOD", morceau());
  dossier.Ecrire("ENQ.BRT", morceau());
  dossier.Ecrire("ENQ.CDG", "");

  quelvar::Dialogue dialogue;
  const quelvar::factor::OptionsAnecar options = OptionsDe(donnees[0], donnees[1]);
  const quelvar::Fin fin = quelvar::factor::Anecar(dossier.Contexte(dialogue), options);
  const bool rapport = dossier.Existe("ENQ.AFC") || dossier.Existe("ENQ.ACP");
  if (!dossier.Existe("ENQ.ANA") || (fin == quelvar::Fin::Normale && !rapport)) std::abort();
  if (fin == quelvar::Fin::Normale && options.classification) Couper(dossier, dialogue, donnees[1]);
  dossier.Ecrire("ENQ.CAH", morceau());
  Couper(dossier, dialogue, donnees[1]);
  return 0;
}
