#include "text/commun/intitule.h"

#include <algorithm>

#include "core/programme/rapport.h"
#include "core/texte/caracteres.h"
#include "text/commun/lignedemot.h"

namespace quelvar::text {

namespace {

// Whether the cutting can have given the code to the word: its first characters, then a running number if there is one.
bool EstCodeDe(std::string_view code, std::string_view mot, bool champEntier) {
  const std::string debut = CadreGauche(mot, kLargeurCode);
  // A code of digits alone goes with any word: only the width of the field tells it.
  const std::size_t chiffresAuPlus = champEntier ? kLargeurCode : kLargeurCode - 1;
  for (std::size_t chiffres = 0; chiffres <= chiffresAuPlus; ++chiffres) {
    const std::size_t racine = kLargeurCode - chiffres;
    if (chiffres > 0 && code[racine] == '0') continue;
    if (code.substr(0, racine) == std::string_view(debut).substr(0, racine) &&
        std::all_of(code.begin() + static_cast<std::ptrdiff_t>(racine), code.end(), EstChiffre))
      return true;
  }
  return false;
}

bool EstUnThemeInverse(std::string_view mot) { return mot.starts_with('_') && mot.ends_with('*'); }

}  // namespace

bool PorteUnCode(std::string_view intitule) {
  std::string_view mot = RognerDroite(intitule.substr(std::min(kLargeurCode, intitule.size())));
  if (EstUnThemeInverse(mot)) mot.remove_suffix(1);
  if (mot.empty() || mot.size() > kLargeurMot) return false;
  return EstCodeDe(intitule.substr(0, kLargeurCode), mot, intitule.size() == kLargeurCode + kLargeurMot);
}

std::string_view MotDeLIntitule(std::string_view intitule) {
  const bool code = PorteUnCode(intitule);
  std::string_view mot = Rogner(code ? intitule.substr(kLargeurCode) : intitule);
  if (code && EstUnThemeInverse(mot)) mot.remove_suffix(1);
  return mot;
}

std::vector<std::string> MotsDeLIntitule(std::string_view intitule) {
  if (PorteUnCode(intitule)) return {std::string(MotDeLIntitule(intitule))};
  return MotsSepares(intitule, " ,;/+");
}

std::vector<std::string> MotsSepares(std::string_view texte, std::string_view separateurs) {
  std::vector<std::string> mots;
  for (std::size_t debut = 0; debut < texte.size();) {
    const std::size_t fin = std::min(texte.find_first_of(separateurs, debut), texte.size());
    if (fin > debut) mots.emplace_back(texte.substr(debut, fin - debut));
    debut = fin + 1;
  }
  return mots;
}

}  // namespace quelvar::text
