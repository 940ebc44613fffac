// Any coding and any table, through the three programs that read them: each run ends with a report. Input: one byte
// that chooses the program, the bytes of the .MOD, FF hex, those of the .CDG.
#include "regression/anatab.h"

#include <cstdint>
#include <cstdlib>

#include "fuzz/support/dossier_memoire.h"
#include "regression/reglin/reglin.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  const fuzz::DossierMemoire& dossier = fuzz::DossierVide();
  fuzz::Entree entree(donnees, taille, 1);
  const std::string_view reste = entree.Reste();
  dossier.Distribuer(entree, {"ENQ.MOD", "ENQ.CDG"});
  const bool numerique = (entree.Option() & 1) != 0;
  const quelvar::Contexte contexte = dossier.Contexte();
  const quelvar::Fin fin = numerique ? quelvar::regression::Reglin(contexte) : quelvar::regression::Anatab(contexte);
  const std::string rapport = dossier.Lire(numerique ? "ENQ.REG" : "ENQ.TRP");
  if (fin == quelvar::Fin::Normale && rapport.find("Fin normale") == rapport.npos) std::abort();
  if (rapport.find("nan") != rapport.npos && reste.find("nan") == reste.npos) std::abort();
  return 0;
}
