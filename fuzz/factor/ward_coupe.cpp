// Any tree file with any survey: the cut ends with a report, leaves what it read alone, and makes a new generic whole
// or not at all. Input: one byte for the level, the bytes of the .CAH, FF hex, those of the .MOD, FF hex, those of the
// .DAT, FF hex, those of the .POS.
#include <cstdint>
#include <cstdlib>

#include "factor/classement/coupe.h"
#include "fuzz/support/dossier_memoire.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  if (taille == 0) return 0;
  static const fuzz::DossierMemoire dossier;
  dossier.Vider();
  fuzz::Morceaux morceaux({reinterpret_cast<const char*>(donnees) + 1, taille - 1});
  const std::string cah(morceaux.Suivant());
  const std::string mod(morceaux.Suivant());
  const std::string dat(morceaux.Suivant());
  const std::string pos(morceaux.Suivant());
  dossier.Ecrire("ENQ.CAH", cah);
  dossier.Ecrire("ENQ.MOD", mod);
  dossier.Ecrire("ENQ.DAT", dat);
  dossier.Ecrire("ENQ.POS", pos);
  quelvar::Dialogue dialogue;
  quelvar::factor::OptionsCoupe options;
  options.niveau = donnees[0];
  const bool fini = quelvar::factor::WardCoupe(dossier.Contexte(dialogue), options) == quelvar::Fin::Normale;
  if (!dossier.Existe("ENQ.PRT") || dossier.Lire("ENQ.CAH") != cah || dossier.Lire("ENQ.MOD") != mod ||
      dossier.Lire("ENQ.DAT") != dat || dossier.Lire("ENQ.POS") != pos)
    std::abort();
  const bool nouveau = dossier.Existe("ENR.POS");
  if (nouveau != dossier.Existe("ENR.DAT") || nouveau != dossier.Existe("ENR.MOD") || (nouveau && !fini)) std::abort();
  return 0;
}
