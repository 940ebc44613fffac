// Any tree file with any survey: the cut ends with a report, leaves what it read alone, and makes a new generic whole
// or not at all. Input: one byte for the level, the bytes of the .CAH, FF hex, those of the .MOD, FF hex, those of the
// .DAT, FF hex, those of the .POS.
#include <cstdint>
#include <cstdlib>

#include "factor/coupe/coupe.h"
#include "fuzz/support/dossier_memoire.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  const fuzz::DossierMemoire& dossier = fuzz::DossierVide();
  fuzz::Entree entree(donnees, taille, 1);
  const fuzz::Contenus lus = dossier.Distribuer(entree, {"ENQ.CAH", "ENQ.MOD", "ENQ.DAT", "ENQ.POS"});
  quelvar::factor::OptionsCoupe options;
  options.niveau = static_cast<int>(entree.Option());
  const bool fini = quelvar::factor::WardCoupe(dossier.Contexte(), options) == quelvar::Fin::Normale;
  if (!dossier.Existe("ENQ.PRT")) std::abort();
  dossier.ExigerIntacts(lus);
  const bool nouveau = dossier.Existe("ENR.POS");
  if (nouveau != dossier.Existe("ENR.DAT") || nouveau != dossier.Existe("ENR.MOD") || (nouveau && !fini)) std::abort();
  return 0;
}
