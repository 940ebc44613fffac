// Any table, Burt table or list of cliques, with any options: the run ends with a report, and the links of an earlier
// run are whole, gone or replaced by whole records. Input: one byte of options, the bytes of the .MOD, FF hex, those of
// the .BRT, FF hex, those of the .POS, FF hex, those of the .NT1.
#include "tables/ecapem.h"

#include <cstdint>
#include <cstdlib>

#include "fuzz/support/dossier_memoire.h"
#include "tables/liens/liens.h"

namespace {

constexpr std::string_view kAnciensLiens("\x01\0\x02\0\0\0\x80\x3F", 8);

void Verifier(const fuzz::DossierMemoire& dossier, quelvar::Fin fin) {
  const std::string rapport = dossier.Lire("ENQ.PRO");
  for (const char* nom : {"ENQ.PEM", "ENQ.PEL"})
    if (dossier.Existe(nom) && dossier.Lire(nom).size() % quelvar::tables::kOctetsDUnLien != 0) std::abort();
  if (fin == quelvar::Fin::Normale && rapport.find("Fin normale") == rapport.npos) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  if (taille == 0) return 0;
  static const fuzz::DossierMemoire dossier;
  dossier.Vider();
  dossier.Ecrire("ENQ.PEM", kAnciensLiens);
  std::string_view reste(reinterpret_cast<const char*>(donnees) + 1, taille - 1);
  for (const char* nom : {"ENQ.MOD", "ENQ.BRT", "ENQ.POS", "ENQ.NT1"}) {
    const std::size_t coupe = reste.find('\xFF');
    dossier.Ecrire(nom, reste.substr(0, coupe));
    if (coupe == reste.npos) break;
    reste.remove_prefix(coupe + 1);
  }
  quelvar::tables::OptionsEcapem options;
  options.cliques = (donnees[0] & 1) != 0;
  options.intitules =
      (donnees[0] & 2) != 0 ? quelvar::tables::ModeIntitules::Courts : quelvar::tables::ModeIntitules::Longs;
  options.diagonalisation = (donnees[0] & 4) != 0;
  options.liensLignes = (donnees[0] & 8) != 0;
  options.tousTableaux = (donnees[0] & 16) != 0;
  if ((donnees[0] & 32) != 0) options.seuil = quelvar::tables::SeuilAnnonce::Gendat;
  quelvar::Dialogue dialogue;
  Verifier(dossier, quelvar::tables::Ecapem(dossier.Contexte(dialogue), options));
  return 0;
}
