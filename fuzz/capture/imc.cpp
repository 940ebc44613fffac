// Any bytes as the choices of an import: they are read or refused with a sentence, and what was read is written so that
// it is read again as the same.
#include "capture/apercu/choix/imc.h"

#include <cstdint>
#include <cstdlib>

#include "core/panne/erreur.h"
#include "fuzz/support/fichier_memoire.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  const fuzz::FichierMemoire fichier({reinterpret_cast<const char*>(donnees), taille});
  std::string ecrit;
  try {
    ecrit = quelvar::capture::EcrireImc(quelvar::capture::LireImc(fichier.Chemin()));
  } catch (const quelvar::Erreur& erreur) {
    if (quelvar::TexteErreur(erreur.Numero()).empty()) std::abort();
    return 0;
  }
  const fuzz::FichierMemoire relu(ecrit);
  if (quelvar::capture::EcrireImc(quelvar::capture::LireImc(relu.Chemin())) != ecrit) std::abort();
  return 0;
}
