// Any instructions and data, in any mode: the recoding ends with a report, leaves what it read alone, and writes either
// a generic that the flat sort can read (nobody may be left in it) or none at all. Input: one byte of options, the
// bytes of the .POS, FF hex, those of the .DAT.
#include "sorts/recodage/recodage.h"

#include <cstdint>
#include <cstdlib>

#include "fuzz/support/dossier_memoire.h"
#include "sorts/triapl/triapl.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  if (taille == 0) return 0;
  static const fuzz::DossierMemoire dossier;
  dossier.Vider();
  const std::string_view reste(reinterpret_cast<const char*>(donnees) + 1, taille - 1);
  const std::size_t coupe = std::min(reste.find('\xFF'), reste.size());
  const std::string pos(reste.substr(0, coupe));
  const std::string dat(reste.substr(std::min(coupe + 1, reste.size())));
  // The whole result of a weighting has no bound but the disk.
  if (quelvar::Majuscules(pos).find("MAX") != pos.npos) return 0;
  dossier.Ecrire("ENQ.POS", pos);
  dossier.Ecrire("ENQ.DAT", dat);
  quelvar::sorts::OptionsRecodage options;
  options.seules = (donnees[0] & 1) != 0;
  options.enFin = (donnees[0] & 2) != 0;
  options.toutesSelectionnees = (donnees[0] & 4) == 0;
  quelvar::Dialogue dialogue;
  quelvar::Contexte contexte = dossier.Contexte(dialogue);
  const bool complete = quelvar::sorts::Recodage(contexte, options) == quelvar::Fin::Normale;
  if (!dossier.Existe("ENR.REC") || dossier.Existe("ENR.POS") != complete || dossier.Existe("ENR.DAT") != complete)
    std::abort();
  if (dossier.Lire("ENQ.POS") != pos || dossier.Lire("ENQ.DAT") != dat) std::abort();
  contexte.generique = "ENR";
  const bool peuplee = complete && !dossier.Lire("ENR.DAT").empty();
  if (peuplee && quelvar::sorts::Triapl(contexte, {}) != quelvar::Fin::Normale) std::abort();
  return 0;
}
