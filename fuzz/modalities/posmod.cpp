// Any survey and any earlier .MOD, with any options: the creation of the modalities ends with a report; its files come
// all together or not at all, and what it made can be read by the programs that follow. Input: one byte of options, the
// bytes of the .POS, FF hex, those of the .DAT, FF hex, those of the .MOD.
#include "modalities/creation/posmod.h"

#include <cstdint>
#include <cstdlib>

#include "fuzz/support/dossier_memoire.h"
#include "tables/ecapem.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  const fuzz::DossierMemoire& dossier = fuzz::DossierVide();
  fuzz::Entree entree(donnees, taille, 1);
  const unsigned choix = entree.Option();
  const fuzz::Contenus pos = dossier.Distribuer(entree, {"ENQ.POS"});
  const fuzz::Contenus dat = dossier.Distribuer(entree, {"ENQ.DAT"});
  const fuzz::Contenus mod = dossier.Distribuer(entree, {"ENQ.MOD"}, fuzz::PieceVide::Absent);

  quelvar::modalities::OptionsPosmod options;
  options.mode = (choix & 1) != 0 ? quelvar::modalities::ModePosmod::Regr : quelvar::modalities::ModePosmod::Afc;
  options.codesZero = (choix & 2) == 0;
  options.individus = (choix & 4) != 0;
  options.verifierCodesMax = (choix & 8) == 0;
  options.oublierAnciennes = (choix & 16) != 0;
  const quelvar::Contexte contexte = dossier.Contexte();
  const bool complete = quelvar::modalities::Posmod(contexte, options) == quelvar::Fin::Normale;
  // A choice that is refused shows its sentence and leaves the reports as they were.
  if (complete && !dossier.Existe("ENQ.PRT")) std::abort();
  dossier.ExigerIntacts(dat);
  if (dossier.Existe("ENQ.BRT") != complete) std::abort();
  if (complete) {
    quelvar::tables::Ecapem(contexte, {});
    return 0;
  }
  dossier.ExigerIntacts(pos);
  dossier.ExigerIntacts(mod);
  if (dossier.Existe("ENQ.MOD") == mod.empty()) std::abort();
  return 0;
}
