// Any dictionary, data file and labels, with any options: the flat sort ends with a report. Input: one byte of options,
// the bytes of the .POS, FF hex, those of the .DAT, FF hex, those of the .MOD, FF hex, those of the .TRG.
#include "sorts/triapl/triapl.h"

#include <array>
#include <cstdint>
#include <cstdlib>

#include "fuzz/support/dossier_memoire.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  if (taille == 0) return 0;
  static const fuzz::DossierMemoire dossier;
  dossier.Vider();
  std::string_view reste(reinterpret_cast<const char*>(donnees) + 1, taille - 1);
  for (const char* nom : {"ENQ.POS", "ENQ.DAT", "ENQ.MOD", "ENQ.TRG"}) {
    const std::size_t coupe = reste.find('\xFF');
    dossier.Ecrire(nom, reste.substr(0, coupe));
    if (coupe == reste.npos) break;
    reste.remove_prefix(coupe + 1);
  }
  quelvar::sorts::OptionsTriapl options;
  options.reponsesMultiples = (donnees[0] & 1) != 0;
  options.triangulaire = (donnees[0] & 2) != 0;
  options.limite = (donnees[0] & 4) != 0 ? 2 : 0;
  options.intitules = (donnees[0] & 8) == 0;
  options.nonReponses = (donnees[0] & 16) == 0;
  quelvar::Dialogue dialogue;
  quelvar::sorts::Triapl(dossier.Contexte(dialogue), options);
  if (!dossier.Existe("ENQ.TAP")) std::abort();
  return 0;
}
