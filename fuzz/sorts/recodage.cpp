// Any instructions and data, in any mode: the recoding ends with a report, leaves what it read alone, and writes either
// a generic that the flat sort can read (nobody may be left in it) or none at all. Input: one byte of options, the
// bytes of the .POS, FF hex, those of the .DAT.
#include "sorts/recodage/recodage.h"

#include <cstdint>
#include <cstdlib>

#include "fuzz/support/dossier_memoire.h"
#include "sorts/triapl/triapl.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  const fuzz::DossierMemoire& dossier = fuzz::DossierVide();
  fuzz::Entree entree(donnees, taille, 1);
  const unsigned choix = entree.Option();
  const fuzz::Contenus lus = dossier.Distribuer(entree, {"ENQ.POS", "ENQ.DAT"});
  // The whole result of a weighting has no bound but the disk.
  if (quelvar::Majuscules(lus.at("ENQ.POS")).find("MAX") != std::string::npos) return 0;
  quelvar::sorts::OptionsRecodage options;
  options.seules = (choix & 1) != 0;
  options.enFin = (choix & 2) != 0;
  options.toutesSelectionnees = (choix & 4) == 0;
  quelvar::Contexte contexte = dossier.Contexte();
  const bool complete = quelvar::sorts::Recodage(contexte, options) == quelvar::Fin::Normale;
  if (!dossier.Existe("ENR.REC") || dossier.Existe("ENR.POS") != complete || dossier.Existe("ENR.DAT") != complete)
    std::abort();
  dossier.ExigerIntacts(lus);
  contexte.generique = "ENR";
  const bool peuplee = complete && !dossier.Lire("ENR.DAT").empty();
  if (peuplee && quelvar::sorts::Triapl(contexte, {}) != quelvar::Fin::Normale) std::abort();
  return 0;
}
