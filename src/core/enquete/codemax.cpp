#include "core/enquete/codemax.h"

#include "core/chiffres/nombres.h"
#include "core/texte/texte.h"

namespace quelvar {

std::optional<RefusDeCodeMax> RefusDuCodeMax(const Question& question) {
  if (question.codeMax <= kDernierCodeNomme) return std::nullopt;
  const std::string depasse = Joindre({" dépasse "_w, Nombre(kDernierCodeNomme)});
  return RefusDeCodeMax{
      .boite = Joindre({"Le code-max de la question ", question.nom, depasse, ", recoder la question"}),
      .ligne = Joindre({"ERREUR *** Il faut recoder la question ", question.nom, " dont le code-max", depasse})};
}

}  // namespace quelvar
