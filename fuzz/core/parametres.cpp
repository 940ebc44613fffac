// Any parameter line: LireParametres ends with values that fit their types or with an error number.
#include "core/enquete/parametres.h"

#include <cstdint>
#include <cstdlib>

#include "core/panne/erreur.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  const std::string_view ligne(reinterpret_cast<const char*>(donnees), taille);
  try {
    const quelvar::ParametresMod lus = quelvar::LireParametres(ligne, "ENQ.MOD");
    if (lus.modPresent && lus.mod.ends_with(' ')) std::abort();
  } catch (const quelvar::Erreur& erreur) {
    if (quelvar::TexteErreur(erreur.Numero()).empty()) std::abort();
  }
  return 0;
}
