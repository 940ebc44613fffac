#include "utilities/entrees/colonnes.h"

#include <algorithm>

#include "core/chiffres/nombres.h"
#include "core/options/option.h"
#include "core/panne/erreur.h"

namespace quelvar::utilities {

std::int64_t NombreTape(std::string_view texte) {
  constexpr double kAuDelaDeTout = 1e15;  // more lines or columns than any file has, still a whole number in a double
  return Entier64(std::clamp(ValeurDe(texte), -kAuDelaDeTout, kAuDelaDeTout));
}

namespace {

bool EstUneColonne(std::string_view texte, std::int64_t minimum) {
  try {
    return EstNombre(texte) && NombreTape(texte) >= minimum;
  } catch (const Erreur&) {  // beyond a double
    return false;
  }
}

}  // namespace

std::string RefusDeColonne(std::string_view option, std::string_view texte, std::int64_t minimum) {
  if (EstUneColonne(texte, minimum)) return {};
  try {
    RefuserValeur(option, Joindre({"un nombre ("_w, Nombre(minimum), "..)"}), texte);
  } catch (const UsageIncorrect& refus) {
    return refus.what();
  }
}

}  // namespace quelvar::utilities
