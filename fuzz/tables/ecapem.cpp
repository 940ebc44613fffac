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
  const fuzz::DossierMemoire& dossier = fuzz::DossierVide();
  fuzz::Entree entree(donnees, taille, 1);
  const unsigned choix = entree.Option();
  dossier.Ecrire("ENQ.PEM", kAnciensLiens);
  dossier.Distribuer(entree, {"ENQ.MOD", "ENQ.BRT", "ENQ.POS", "ENQ.NT1"});
  quelvar::tables::OptionsEcapem options;
  options.cliques = (choix & 1) != 0;
  options.intitules = (choix & 2) != 0 ? quelvar::tables::ModeIntitules::Courts : quelvar::tables::ModeIntitules::Longs;
  options.diagonalisation = (choix & 4) != 0;
  options.liensLignes = (choix & 8) != 0;
  options.tousTableaux = (choix & 16) != 0;
  if ((choix & 32) != 0) options.seuil = quelvar::tables::SeuilAnnonce::Gendat;
  Verifier(dossier, quelvar::tables::Ecapem(dossier.Contexte(), options));
  return 0;
}
