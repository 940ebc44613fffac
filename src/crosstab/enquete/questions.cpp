#include "crosstab/enquete/questions.h"

#include "core/enquete/nomdemodalite.h"
#include "core/resultats/cadre.h"

namespace quelvar::crosstab {

std::vector<std::string> IntitulesCourts(const QuestionCroisee& question) {
  std::vector<std::string> intitules;
  for (int code = 0; code <= question.plafond; ++code)
    intitules.push_back(Joindre({question.nom, CodeCaractere(code)}));
  return intitules;
}

std::vector<std::string> NomsDeModalites(const QuestionCroisee& question) {
  std::vector<std::string> noms;
  for (int code = 0; code <= question.plafond; ++code) noms.push_back(NomDeModalite(question.nom, code));
  return noms;
}

std::vector<std::string> IntitulesEtendus(const EnqueteCroisee& enquete, const QuestionCroisee& question) {
  std::vector<std::string> intitules = NomsDeModalites(question);
  for (std::string& intitule : intitules) {
    const std::string* trouve = enquete.intitules.Chercher(intitule);
    const std::string_view texte = trouve == nullptr ? std::string_view() : RognerDroite(*trouve);
    if (!texte.empty()) intitule = DisposerSurDeuxLignes(texte);
  }
  return intitules;
}

}  // namespace quelvar::crosstab
