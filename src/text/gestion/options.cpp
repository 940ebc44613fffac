#include "text/gestion/options.h"

namespace quelvar::text {

std::pair<std::string, std::string> AvantEtApres(std::string_view option, const std::string& valeur) {
  const std::size_t egal = valeur.find('=');
  if (egal == std::string::npos) RefuserValeur(option, "NOM=TEXTE", valeur);
  return {valeur.substr(0, egal), valeur.substr(egal + 1)};
}

}  // namespace quelvar::text
