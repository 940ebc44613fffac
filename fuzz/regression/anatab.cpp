// Any coding and any table, through the three programs that read them: each run ends with a report. Input: one byte
// that chooses the program, the bytes of the .MOD, FF hex, those of the .CDG.
#include "regression/anatab/anatab.h"

#include <cstdint>
#include <cstdlib>

#include "fuzz/support/dossier_memoire.h"
#include "regression/reglin/reglin.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  if (taille == 0) return 0;
  static const fuzz::DossierMemoire dossier;
  dossier.Vider();
  const std::string_view reste(reinterpret_cast<const char*>(donnees) + 1, taille - 1);
  const std::size_t coupe = reste.find('\xFF');
  dossier.Ecrire("ENQ.MOD", reste.substr(0, coupe));
  if (coupe != reste.npos) dossier.Ecrire("ENQ.CDG", reste.substr(coupe + 1));
  quelvar::Dialogue dialogue;
  const bool numerique = (donnees[0] & 1) != 0;
  const quelvar::Contexte contexte = dossier.Contexte(dialogue);
  const quelvar::Fin fin = numerique ? quelvar::regression::Reglin(contexte) : quelvar::regression::Anatab(contexte);
  const std::string rapport = dossier.Lire(numerique ? "ENQ.REG" : "ENQ.TRP");
  if (fin == quelvar::Fin::Normale && rapport.find("Fin normale") == rapport.npos) std::abort();
  if (rapport.find("nan") != rapport.npos && reste.find("nan") == reste.npos) std::abort();
  return 0;
}
