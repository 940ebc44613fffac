#include "core/enquete/noms.h"

#include <set>
#include <string>
#include <vector>

#include "core/chiffres/nombres.h"
#include "core/enquete/posfile.h"
#include "core/texte/listes.h"

namespace quelvar {

std::string FauteHomonymes(std::string_view nom, std::span<const int> positions) {
  std::vector<std::string> places;
  for (const int position : positions) places.push_back(Nombre(position));
  return Joindre({"Le nom ", Rogner(nom), " est celui de ", Nombre(static_cast<std::int64_t>(positions.size())),
                  " questions, aux positions ", Enumerer(places, " et "),
                  " : donnez-leur des noms différents dans le fichier *.POS et relancez"_w});
}

std::string FauteModalitesHomonymes(std::string_view nom, std::size_t modalites) {
  return Joindre({"Le nom ", Rogner(nom), " est celui de ", Nombre(modalites),
                  " modalités : donnez-leur des noms différents dans le fichier *.MOD et relancez"_w});
}

std::string FauteQuestionAbsente(std::string_view nom) {
  return Joindre({"La question ", nom, " n'est pas dans le fichier de positions"});
}

void ExigerNomsDifferents(const FichierPos& pos) {
  std::set<std::string_view> vus;
  for (std::size_t i = 0; i < pos.questions.size(); ++i) {
    const std::string& nom = pos.questions[i].nom;
    if (vus.insert(Rogner(nom)).second) continue;
    throw Erreur(kIncompatibiliteType, FauteHomonymes(nom, pos.questions, RangsDuNom(pos.questions, nom)))
        .Situer(LieuDeLaQuestion(pos, i));
  }
}

}  // namespace quelvar
