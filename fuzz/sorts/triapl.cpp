// Any dictionary, data file and labels, with any options: the flat sort ends with a report. Input: one byte of options,
// the bytes of the .POS, FF hex, those of the .DAT, FF hex, those of the .MOD, FF hex, those of the .TRG.
#include "sorts/triapl/triapl.h"

#include <cstdint>
#include <cstdlib>

#include "fuzz/support/dossier_memoire.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  const fuzz::DossierMemoire& dossier = fuzz::DossierVide();
  fuzz::Entree entree(donnees, taille, 1);
  const unsigned choix = entree.Option();
  dossier.Distribuer(entree, {"ENQ.POS", "ENQ.DAT", "ENQ.MOD", "ENQ.TRG"});
  quelvar::sorts::OptionsTriapl options;
  options.reponsesMultiples = (choix & 1) != 0;
  options.triangulaire = (choix & 2) != 0;
  options.limite = (choix & 4) != 0 ? 2 : 0;
  options.intitules = (choix & 8) == 0;
  options.nonReponses = (choix & 16) == 0;
  quelvar::sorts::Triapl(dossier.Contexte(), options);
  if (!dossier.Existe("ENQ.TAP")) std::abort();
  return 0;
}
