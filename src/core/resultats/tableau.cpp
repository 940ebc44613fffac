#include "core/resultats/tableau.h"

#include "core/programme/rapport.h"

namespace quelvar {

std::string TexteDeCellule(const Cellule& cellule) {
  if (!cellule.valeur) return {};
  return std::string(Rogner(NombreFixe(*cellule.valeur, kEntiersDeToutNombre, cellule.decimales)));
}

}  // namespace quelvar
