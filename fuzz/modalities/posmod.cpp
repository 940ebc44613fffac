// Any survey and any earlier .MOD, with any options: the creation of the modalities ends with a report; its files come
// all together or not at all, and what it made can be read by the programs that follow. Input: one byte of options, the
// bytes of the .POS, FF hex, those of the .DAT, FF hex, those of the .MOD.
#include "modalities/creation/posmod.h"

#include <cstdint>
#include <cstdlib>

#include "fuzz/support/dossier_memoire.h"
#include "tables/ecapem.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  if (taille == 0) return 0;
  static const fuzz::DossierMemoire dossier;
  dossier.Vider();
  const unsigned choix = donnees[0];
  fuzz::Morceaux morceaux({reinterpret_cast<const char*>(donnees) + 1, taille - 1});
  const std::string pos(morceaux.Suivant());
  const std::string dat(morceaux.Suivant());
  const std::string mod(morceaux.Suivant());
  dossier.Ecrire("ENQ.POS", pos);
  dossier.Ecrire("ENQ.DAT", dat);
  if (!mod.empty()) dossier.Ecrire("ENQ.MOD", mod);

  quelvar::modalities::OptionsPosmod options;
  options.mode = (choix & 1) != 0 ? quelvar::modalities::ModePosmod::Regr : quelvar::modalities::ModePosmod::Afc;
  options.codesZero = (choix & 2) == 0;
  options.individus = (choix & 4) != 0;
  options.verifierCodesMax = (choix & 8) == 0;
  options.oublierAnciennes = (choix & 16) != 0;
  quelvar::Dialogue dialogue;
  const quelvar::Contexte contexte = dossier.Contexte(dialogue);
  const bool complete = quelvar::modalities::Posmod(contexte, options) == quelvar::Fin::Normale;
  // A choice that is refused shows its sentence and leaves the reports as they were.
  if (complete && !dossier.Existe("ENQ.PRT")) std::abort();
  if (dossier.Lire("ENQ.DAT") != dat || dossier.Existe("ENQ.BRT") != complete) std::abort();
  if (!complete && (dossier.Lire("ENQ.POS") != pos || dossier.Existe("ENQ.MOD") != !mod.empty())) std::abort();
  if (!complete && !mod.empty() && dossier.Lire("ENQ.MOD") != mod) std::abort();
  if (complete) quelvar::tables::Ecapem(contexte, {});
  return 0;
}
