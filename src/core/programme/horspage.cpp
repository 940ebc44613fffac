#include "core/programme/horspage.h"

#include <algorithm>

#include "core/chiffres/nombres.h"
#include "core/texte/texte.h"

namespace quelvar {

std::string RefusHorsPage(std::string_view utf8) {
  for (std::size_t place = 1; !utf8.empty(); ++place) {
    const PointUtf8 lu = DecoderUtf8(utf8);
    if (lu.longueur == 0) return Joindre({"le caractère "_w, Nombre(place), " n'est pas de l'UTF-8 : récrivez-le"_w});
    if (OctetDe(lu.point) < 0)
      return Joindre({"le caractère "_w, Nombre(place), ", \""_w, NomDepuisUtf8(utf8.substr(0, lu.longueur)),
                      "\", n'existe pas dans la page de code des fichiers (Windows-1252) : remplacez-le"_w});
    utf8.remove_prefix(lu.longueur);
  }
  return {};
}

}  // namespace quelvar
