#include "core/enquete/noms.h"

#include "core/chiffres/nombres.h"

namespace quelvar {

std::string FauteHomonymes(std::string_view nom, std::span<const int> positions) {
  std::string liste;
  for (std::size_t i = 0; i < positions.size(); ++i) {
    if (i > 0) liste += i + 1 == positions.size() ? " et " : ", ";
    liste += Nombre(positions[i]);
  }
  return Joindre({"Le nom ", Rogner(nom), " est celui de ", Nombre(static_cast<std::int64_t>(positions.size())),
                  " questions, aux positions ", liste,
                  " : donnez-leur des noms différents dans le fichier *.POS et relancez"_w});
}

std::string FauteModalitesHomonymes(std::string_view nom, std::size_t modalites) {
  return Joindre({"Le nom ", Rogner(nom), " est celui de ", Nombre(modalites),
                  " modalités : donnez-leur des noms différents dans le fichier *.MOD et relancez"_w});
}

}  // namespace quelvar
