#include "forms/qt/garde.h"

#include <optional>
#include <string>

#include "core/options/option.h"
#include "core/programme/annulation.h"

namespace quelvar::forms {

Erreur EchecEnCours() {
  try {
    throw;
  } catch (const Annulation&) {
    return {kArretAnnonce, std::string(kArretVolontaire)};
  } catch (const UsageIncorrect& refus) {
    return {kArretAnnonce, refus.what()};
  } catch (...) {
    return ErreurEnCours();
  }
}

bool Garder(const Gestes& gestes, const DireLEchec& dire) {
  std::optional<Erreur> echec;
  try {
    gestes();
  } catch (...) {
    echec = EchecEnCours();
  }
  if (echec) dire(*echec);  // what failed has been cleared away
  return !echec;
}

}  // namespace quelvar::forms
