#include "core/resultats/tableau.h"

#include "core/programme/rapport.h"

namespace quelvar {

std::string TexteDeCellule(const Cellule& cellule) {
  if (!cellule.valeur) return {};
  constexpr int kAssezLarge = 20;
  return std::string(Rogner(NombreFixe(*cellule.valeur, kAssezLarge, cellule.decimales)));
}

}  // namespace quelvar
